#include "jetfile/json_text.h"

#include "jet/utf8.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace jetfile
{

namespace
{

std::string Escaped(char c)
{
    constexpr std::string_view kPlain = "\"\\\b\f\n\r\t";
    constexpr std::string_view kLetters = "\"\\bfnrt";
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (const std::size_t which = kPlain.find(c); which != std::string_view::npos) {
        return {'\\', kLetters[which]};
    }
    const auto byte = static_cast<std::uint8_t>(c);
    return {'\\', 'u', '0', '0', kDigits[byte >> 4], kDigits[byte & 15]};
}

}  // namespace

std::string JsonString(std::string_view utf8)
{
    std::string text = "\"";
    for (const char c : utf8) {
        const bool plain = c != '"' && c != '\\' && static_cast<std::uint8_t>(c) >= 0x20;
        text += plain ? std::string(1, c) : Escaped(c);
    }
    return text + '"';
}

std::string JsonString(std::u16string_view text)
{
    return JsonString(jet::ToUtf8(text));
}

std::string JsonDouble(double number)
{
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";

    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::scientific)
                         .ptr;
    std::string scientific(buffer.data(), end);  // [-]d[.ddd]e±dd
    const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
    if (exponent < -4 || exponent >= 16) return scientific;

    const auto fixed_end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                         std::chars_format::fixed)
                               .ptr;
    const std::string fixed(buffer.data(), fixed_end);
    return fixed.find('.') == std::string::npos ? fixed + ".0" : fixed;
}

}  // namespace jetfile
