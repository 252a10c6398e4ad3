#include "jet/utf8.h"

#include <cstdint>

namespace jet
{

namespace
{

bool IsHighSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

void Append(std::uint32_t code_point, std::string& out)
{
    const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
    const auto trail = [&](int shift) { put(0x80 | (code_point >> shift & 0x3F)); };
    if (code_point < 0x80) {
        put(code_point);
    } else if (code_point < 0x800) {
        put(0xC0 | code_point >> 6);
        trail(0);
    } else if (code_point < 0x10000) {
        put(0xE0 | code_point >> 12);
        trail(6);
        trail(0);
    } else {
        put(0xF0 | code_point >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

}  // namespace

std::string ToUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            Append(0x10000u + ((unit & 0x3FFu) << 10) + (text[i + 1] & 0x3FFu), out);
            ++i;
        } else {
            Append(IsHighSurrogate(unit) || IsLowSurrogate(unit) ? 0xFFFD : unit, out);
        }
    }
    return out;
}

}  // namespace jet
