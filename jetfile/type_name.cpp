#include "jetfile/type_name.h"

#include "jet/utf8.h"

#include <algorithm>
#include <array>
#include <utility>

namespace jetfile
{

namespace
{

using jet::ColumnType;

constexpr std::array kNames{
    std::pair{ColumnType::YesNo, "yesno"},       std::pair{ColumnType::Byte, "byte"},
    std::pair{ColumnType::Integer, "integer"},   std::pair{ColumnType::Long, "long"},
    std::pair{ColumnType::Currency, "currency"}, std::pair{ColumnType::Single, "single"},
    std::pair{ColumnType::Double, "double"},     std::pair{ColumnType::Date, "datetime"},
    std::pair{ColumnType::Binary, "binary"},     std::pair{ColumnType::Text, "text"},
    std::pair{ColumnType::Ole, "ole"},           std::pair{ColumnType::Memo, "memo"},
    std::pair{ColumnType::Guid, "guid"},         std::pair{ColumnType::Numeric, "numeric"},
};

}  // namespace

std::string TypeName(ColumnType type)
{
    const auto found = std::ranges::find(kNames, type, [](const auto& row) { return row.first; });
    return found != kNames.end() ? found->second
                                 : "system" + std::to_string(static_cast<int>(type));
}

std::optional<ColumnType> TypeOfName(std::u16string_view name)
{
    const auto found = std::ranges::find(kNames, jet::ToUtf8(name),
                                         [](const auto& row) { return std::string(row.second); });
    if (found == kNames.end()) return std::nullopt;
    return found->first;
}

}  // namespace jetfile
