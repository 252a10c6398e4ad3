#pragma once

#include "jet/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace jetfile
{

/// A value as JSON text:
///
///     null, true, 12, 1.5          numbers in their shortest form, a single with 7 digits
///     "12.3400", "-7.5"            currency and numeric, exactly
///     "2004-02-29 13:05:09"        dates, rounded to the second; the number of days in quotes
///                                  beyond the years 1 to 9999
///     "{00112233-4455-6677-8899-aabbccddeeff}", "0x00ff", "text"
std::string ValueForm(const jet::Value& value);

/// A date of that form; nothing when there is no such day or time.
std::optional<jet::Date> ReadDate(std::string_view text);

}  // namespace jetfile
