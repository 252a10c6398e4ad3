#pragma once

#include <string>
#include <string_view>

namespace orlo
{

/// The part of a text that begins at `position`, counted from 1. A text that is too short gives
/// what it has, down to nothing.
inline std::string Field(std::string_view text, std::size_t position, std::size_t length)
{
    const std::size_t start = position - 1;
    return start < text.size() ? std::string(text.substr(start, length)) : std::string();
}

/// The last characters of a text, all of it when it has fewer.
inline std::string LastCharacters(std::string_view text, std::size_t count)
{
    return std::string(text.size() > count ? text.substr(text.size() - count) : text);
}

}  // namespace orlo
