#pragma once

#include <string>
#include <string_view>

namespace orlo
{

/// The number that the last characters of a terminal's answer begin with, blanks at the end of the
/// answer apart, as decimal text without leading zeros: of "0012 " the last 3 give "12". No digits,
/// as in an error text, give "0".
std::string NumberAtEnd(std::string_view answer, std::size_t characters);

/// Zeros in front of a text up to that width; one that is wider stays.
std::string ZeroFilled(std::string_view text, std::size_t width);

}  // namespace orlo
