#pragma once

#include "jet/schema.h"
#include "jet/value.h"
#include "jetfile/json.h"

namespace jetfile
{

/// The value that ValueForm writes in that way for a column of this type. Currency and numeric may
/// also be numbers. Errors: jet::Error, kWrongType or kFieldOverflow, whose text names the column.
jet::Value ReadValue(const JsonValue& form, const jet::ColumnDefinition& column);

}  // namespace jetfile
