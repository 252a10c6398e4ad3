#pragma once

// Before Text and Binary below: behind them g++ would take the enumerators of the same names for
// shadowing declarations.
#include "jet/column_type.h"

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace jet
{

struct Null {
    bool operator==(const Null&) const = default;
};

/// Ten-thousandths of the amount.
struct Currency {
    std::int64_t ten_thousandths = 0;
    bool operator==(const Currency&) const = default;
};

/// Days since 1899-12-30; the fraction is the time of day and counts forward also before that day.
struct Date {
    double days = 0;
    bool operator==(const Date&) const = default;
};

/// The 16 bytes in the order of the written form {00112233-4455-6677-8899-AABBCCDDEEFF}.
struct Guid {
    std::array<std::uint8_t, 16> bytes{};
    bool operator==(const Guid&) const = default;
};

/// Sign and 128-bit magnitude, most significant byte first; the point stands `scale` digits from
/// the right.
struct Numeric {
    bool negative = false;
    std::array<std::uint8_t, 16> magnitude{};
    std::uint8_t scale = 0;
    bool operator==(const Numeric&) const = default;
};

using Text = std::u16string;
using Binary = std::vector<std::uint8_t>;

/// One field of one row. Byte, Integer and Long columns give std::int32_t.
using Value = std::variant<Null, bool, std::int32_t, Currency, float, double, Date, Text, Binary,
                           Guid, Numeric>;

inline bool IsNull(const Value& value)
{
    return std::holds_alternative<Null>(value);
}

}  // namespace jet
