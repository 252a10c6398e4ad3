#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// Value with leading zeros up to the width; a minus sign counts as one of its characters:
/// Digits(41, 5) is "00041", Digits(-1, 5) is "-0001".
std::string Digits(long value, int width);

/// The value of a text of 1 to 9 decimal digits and nothing else.
std::optional<int> NumberOf(std::string_view text);

/// The pieces between the separators, empty ones included; one piece when there is none.
std::vector<std::string> Split(std::string_view text, char separator);

}  // namespace orlo::simulator
