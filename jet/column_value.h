#pragma once

#include "jet/row.h"
#include "jet/value.h"

namespace jet
{

/// One column's value of a row. A type that ColumnType does not list gives its bytes.
/// Errors: kDamagedFile, kDiskError.
Value ReadColumn(PageFile& file, const Row& row, const ColumnLayout& column);

/// The same from the bytes of a field that is not Null and not Yes/No; `page` for the error.
Value ReadField(PageFile& file, const ColumnLayout& column, Bytes bytes, std::uint32_t page);

/// The value of a column that is neither Yes/No nor a long value, from its bytes; nothing when
/// they cannot be one.
std::optional<Value> DecodeValue(const Format& format, const ColumnLayout& column, Bytes bytes);

}  // namespace jet
