#pragma once

#include "jet/column_type.h"

#include <cstdint>

namespace jet
{

/// Bytes of a value of a type whose values all have the same number of them, 0 for the other types.
/// A Yes/No value is a bit of the null mask, but its column says 1.
constexpr std::uint16_t ColumnWidth(ColumnType type)
{
    switch (type) {
        case ColumnType::YesNo:
        case ColumnType::Byte:
            return 1;
        case ColumnType::Integer:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Numeric:
            return 17;
        default:
            return 0;
    }
}

}  // namespace jet
