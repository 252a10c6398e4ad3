#pragma once

#include <cstdint>

namespace jet
{

/// The numbers are those of the file.
enum class ColumnType : std::uint8_t {
    YesNo = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Numeric = 16,
};

}  // namespace jet
