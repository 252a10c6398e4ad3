#include "jet/text.h"

#include <algorithm>
#include <array>

namespace jet
{

namespace
{

// Bytes 80..9F; all the others stand for themselves.
constexpr std::array<char16_t, 32> kCodePageHigh{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr std::uint8_t kFirstHigh = 0x80;

bool IsHigh(unsigned code)
{
    return code >= kFirstHigh && code < kFirstHigh + kCodePageHigh.size();
}

std::optional<std::u16string> Decompress(Bytes text)
{
    const auto first_switch = std::ranges::find(text, std::uint8_t{0});
    std::u16string out(text.begin(), first_switch);
    bool one_byte = true;
    for (std::size_t i = out.size(); i < text.size();) {
        if (text[i] == 0) {
            one_byte = !one_byte;
            ++i;
        } else if (one_byte) {
            out.push_back(text[i]);
            ++i;
        } else if (i + 1 < text.size()) {
            out.push_back(U16(text, i));
            i += 2;
        } else {
            return std::nullopt;
        }
    }
    return out;
}

}  // namespace

std::u16string DecodeCodePage(Bytes text)
{
    std::u16string out(text.size(), u'\0');
    std::ranges::transform(text, out.begin(), [](std::uint8_t byte) -> char16_t {
        return IsHigh(byte) ? kCodePageHigh[byte - kFirstHigh] : byte;
    });
    return out;
}

std::optional<std::uint8_t> CodePageByte(char16_t unit)
{
    if (unit < 0x100 && !IsHigh(unit)) {
        return static_cast<std::uint8_t>(unit);
    }
    const auto* found = std::ranges::find(kCodePageHigh, unit);
    if (found == kCodePageHigh.end()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(kFirstHigh + (found - kCodePageHigh.begin()));
}

std::optional<std::u16string> DecodeUtf16(Bytes text)
{
    if (text.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string out(text.size() / 2, u'\0');
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = U16(text, 2 * i);
    }
    return out;
}

std::optional<std::u16string> DecodeRowText(Bytes text)
{
    constexpr std::uint16_t kCompressed = 0xFEFF;
    if (text.size() >= 2 && U16(text, 0) == kCompressed) {
        return Decompress(text.subspan(2));
    }
    return DecodeUtf16(text);
}

std::optional<std::u16string> DecodeText(const Format& format, Bytes text)
{
    return format.unicode ? DecodeRowText(text) : DecodeCodePage(text);
}

std::vector<std::uint8_t> EncodeUtf16(std::u16string_view text)
{
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

// Texts of one or two characters are never compressed: the mark would make them longer or no
// shorter. A character 00 would switch the mode, so a text with one stays as it is.
std::optional<std::vector<std::uint8_t>> EncodeRowText(std::u16string_view text, bool may_compress)
{
    constexpr std::size_t kShortestCompressed = 3;
    if (!text.empty() && text.front() == 0xFEFF) {
        return std::nullopt;
    }
    const bool narrow =
        std::ranges::all_of(text, [](char16_t unit) { return unit > 0 && unit < 0x100; });
    if (!may_compress || !narrow || text.size() < kShortestCompressed) {
        return EncodeUtf16(text);
    }
    std::vector<std::uint8_t> bytes{0xFF, 0xFE};
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit));
    }
    return bytes;
}

std::optional<std::vector<std::uint8_t>> EncodeCodePage(std::u16string_view text)
{
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        const auto byte = CodePageByte(unit);
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
    }
    return bytes;
}

}  // namespace jet
