#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace jet
{

using KeyBytes = std::vector<std::uint8_t>;

// The bytes of a text in an index, behind the flag byte, appended to `key`. Texts that differ only
// in case have the same bytes; only the first 255 characters count, and of those no blanks at the
// end. False, with `key` unchanged, when a character has no code.

/// Sort order 0x0409 of Jet 4, version 0.
[[nodiscard]] bool AppendUnicodeTextKey(std::u16string_view text, bool ascending, KeyBytes& key);

/// Sort order 0x0409 of Jet 3, code page 1252.
[[nodiscard]] bool AppendCodePageTextKey(std::u16string_view text, bool ascending, KeyBytes& key);

}  // namespace jet
