#pragma once

#include "jet/recordset.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <optional>

namespace orlo
{

// Values of the current row in the types that the program keeps; Null is nothing. All throw
// jet::Error: that of the cursor, and kWrongType when the value does not fit the type asked for.

/// Any numeric column, Yes/No (-1 true, 0 false) or text that is a whole number.
std::optional<std::int64_t> WholeNumberField(jet::Recordset& rows, std::u16string_view column);
std::optional<float> SingleField(jet::Recordset& rows, std::u16string_view column);
std::optional<QString> TextField(jet::Recordset& rows, std::u16string_view column);

[[noreturn]] void ThrowWrongKind(std::u16string_view column);

template <typename Integer>
std::optional<Integer> IntegerField(jet::Recordset& rows, std::u16string_view column)
{
    const std::optional<std::int64_t> value = WholeNumberField(rows, column);
    if (!value) return std::nullopt;
    if (*value < std::numeric_limits<Integer>::min() ||
        *value > std::numeric_limits<Integer>::max())
        ThrowWrongKind(column);
    return static_cast<Integer>(*value);
}

}  // namespace orlo
