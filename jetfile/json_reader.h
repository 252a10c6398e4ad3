#pragma once

#include "jetfile/json.h"

namespace jetfile
{

/// Reads one value of RFC 8259 with nothing but blanks around it. Refused besides what the grammar
/// refuses: a name twice in an object, half a surrogate pair, bytes that are no UTF-8, and more
/// than 100 values within each other. `first_line` is the number of the text's first line.
/// Errors: JsonError.
JsonValue ReadJson(std::string_view text, std::size_t first_line = 1);

/// The characters of UTF-8 bytes; the place of the first byte that is wrong when there is one.
std::variant<std::u16string, std::size_t> DecodeUtf8(std::string_view bytes);

}  // namespace jetfile
