#pragma once

#include "jet/value.h"

#include <optional>
#include <string>
#include <string_view>

// Exact decimal numbers and their written form.

namespace jetfile
{

/// Four decimals: "-0.5000".
std::string DecimalText(jet::Currency amount);
/// As many decimals as the scale: "12.50", "-7" with none.
std::string DecimalText(const jet::Numeric& number);

/// At most four decimals. Nothing for another text, or an amount beyond 64 bits.
std::optional<jet::Currency> ReadCurrency(std::string_view text);
/// The scale is the number of decimals written. Nothing for another text, or beyond 128 bits.
std::optional<jet::Numeric> ReadNumeric(std::string_view text);

}  // namespace jetfile
