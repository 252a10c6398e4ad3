#pragma once

#include <cstdint>

namespace jet
{

enum class UnicodeKeyKind : std::uint8_t {
    Letter,       ///< inline code only
    Accented,     ///< inline code, and the extra code among the accents
    Unprintable,  ///< no inline code; listed behind the text with its place
    Combining,    ///< no inline code; the extra code is added to the accent before it
    Ignored,
};

/// Codes of one or two bytes, the first one high; 0 = none. No byte of a code is 0.
struct UnicodeKeyCode {
    char16_t unit;
    UnicodeKeyKind kind;
    std::uint16_t inline_code;
    std::uint16_t extra;
};

/// Nothing for a character whose codes are not known.
const UnicodeKeyCode* FindUnicodeKeyCode(char16_t unit);

struct CodePageKeyCode {
    std::uint16_t inline_code;
    std::uint8_t accent;  ///< 0 = none
    std::uint8_t places;  ///< letters that could carry an accent but do not
};

const CodePageKeyCode& CodePageKeyCodeOf(std::uint8_t byte);

}  // namespace jet
