#pragma once

#include "jet/column_type.h"

#include <optional>
#include <string>
#include <string_view>

namespace jetfile
{

/// "yesno", "byte", "integer", "long", "currency", "single", "double", "datetime", "binary",
/// "text", "ole", "memo", "guid", "numeric"; a type of which the engine knows only the number, as
/// system tables have them, is "system" and the number.
std::string TypeName(jet::ColumnType type);

std::optional<jet::ColumnType> TypeOfName(std::u16string_view name);

}  // namespace jetfile
