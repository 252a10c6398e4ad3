#pragma once

#include "simulator/terminal_model.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

struct Bell {
    int hour = 0;
    int minute = 0;
    std::string days;  // 8 flags "0"/"1": Sunday to Saturday, then holidays
    int relay = 0;     // 1 = A, 2 = B, 0 = none
    int duration = 0;
};

/// The rings of a terminal, by position 1..32.
class BellTable
{
public:
    explicit BellTable(BellLayout layout) : layout_(layout) {}

    /// Takes a ring as it stands behind "13" in this model's layout. A ring on no day empties its
    /// position. Returns the position, or nothing when the text is not in the layout.
    std::optional<int> Put(std::string_view text);

    void Clear() { rings_.clear(); }

    const std::map<int, Bell>& Rings() const { return rings_; }

private:
    BellLayout layout_;
    std::map<int, Bell> rings_;
};

}  // namespace orlo::simulator
