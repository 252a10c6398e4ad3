#pragma once

#include "jet/bytes.h"
#include "jet/format.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jet
{

/// Code page 1252. Its five undefined bytes 81 8D 8F 90 9D stand for U+0081 and so on, so that
/// they survive being read and written.
std::u16string DecodeCodePage(Bytes text);

/// The byte for a character, nothing when the code page does not have it.
std::optional<std::uint8_t> CodePageByte(char16_t unit);

/// UTF-16LE; nothing when a character is cut in half.
std::optional<std::u16string> DecodeUtf16(Bytes text);

/// Text of a Jet 4 row: UTF-16LE, or behind the mark FF FE compressed, where a byte stands for a
/// character below U+0100 and 00 switches to whole characters and back. Nothing when a character
/// is cut in half.
std::optional<std::u16string> DecodeRowText(Bytes text);

/// Text of a row in the file's form.
std::optional<std::u16string> DecodeText(const Format& format, Bytes text);

/// Text for a Jet 4 row, compressed when that is allowed, shorter and possible. Nothing for a text
/// that would be taken for a compressed one: it begins with U+FEFF and cannot be compressed.
std::optional<std::vector<std::uint8_t>> EncodeRowText(std::u16string_view text, bool may_compress);

/// UTF-16LE.
std::vector<std::uint8_t> EncodeUtf16(std::u16string_view text);

/// Nothing when the code page does not have a character.
std::optional<std::vector<std::uint8_t>> EncodeCodePage(std::u16string_view text);

}  // namespace jet
