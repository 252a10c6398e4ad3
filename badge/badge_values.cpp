#include "badge/badge_values.h"

#include "link/fields.h"

#include <algorithm>

namespace orlo
{

// Digits stay text from end to end: a plant code may have more of them than a number holds.
std::string NumberAtEnd(std::string_view answer, std::size_t characters)
{
    const std::string_view trimmed = answer.substr(0, answer.find_last_not_of(' ') + 1);
    const std::string end = LastCharacters(trimmed, characters);
    const std::size_t first = std::min(end.find_first_not_of(' '), end.size());
    const std::size_t behind = std::min(end.find_first_not_of("0123456789", first), end.size());
    const std::string digits = end.substr(first, behind - first);
    const std::size_t significant = digits.find_first_not_of('0');
    return significant == std::string::npos ? "0" : digits.substr(significant);
}

std::string ZeroFilled(std::string_view text, std::size_t width)
{
    const std::size_t missing = width - std::min(width, text.size());
    return std::string(missing, '0') + std::string(text);
}

}  // namespace orlo
