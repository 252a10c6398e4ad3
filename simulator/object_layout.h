#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orlo::simulator
{

/// A field of a badge: the plant, the company, the badge number.
struct BadgeField {
    int start = 0;
    int length = 0;
    int value = 0;  // taken when the badge has no such field
};

/// Where an Orlo or Sipa terminal finds its fields in what its reader reads.
struct ObjectLayout {
    std::string name = "BADGE";
    int length = 16;
    bool bidirectional = false;
    std::array<BadgeField, 3> fields = {{{1, 5, 0}, {0, 0, 0}, {6, 6, 0}}};
};

/// Name, length, "0" or "1" for bidirectional, then start, length and value of each field.
std::vector<std::string> LayoutTexts(const ObjectLayout& layout);

/// The layout of such texts; nothing when a position or length is no number of 0 to 99.
std::optional<ObjectLayout> LayoutOf(std::span<const std::string> texts);

}  // namespace orlo::simulator
