#pragma once

#include "jet/row_image.h"
#include "jet/value.h"

namespace jet
{

/// Puts a value into a row. Whole numbers are taken by every kind of number, single and double by
/// each other; else the kind must be that of Recordset::Field.
/// Errors, whose text names the column: kWrongType; kFieldOverflow when a number, kFieldTooSmall
/// when a text or bytes do not fit; kNotSupported for a long value that is not Null.
void SetValue(const Format& format, const ColumnLayout& column, const Value& value, RowImage& row);

}  // namespace jet
