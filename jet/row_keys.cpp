#include "jet/row_keys.h"

#include "jet/column_value.h"

#include <algorithm>

namespace jet
{

RowKey KeyOfRow(PageFile& file, const TableLayout& table, const RealIndex& index, const Row& row)
{
    RowKey key;
    for (const auto& [place, ascending] : index.columns) {
        const ColumnLayout& column = table.columns[place];
        const Value value = ReadColumn(file, row, column);
        key.any_null |= IsNull(value);
        key.all_null &= IsNull(value);
        if (key.result == KeyResult::Built) {
            key.result = AppendKey(file.Format(), column, ascending, value, key.bytes);
        }
    }
    return key;
}

bool SameKeyColumns(const TableLayout& table, const RealIndex& index, const Row& one,
                    const Row& other)
{
    return std::ranges::all_of(index.columns, [&](const KeyColumn& key) {
        const ColumnLayout& column = table.columns[key.column];
        if (column.type == ColumnType::YesNo) {
            return one.Bit(column.id) == other.Bit(column.id);
        }
        const auto left = one.Field(column);
        const auto right = other.Field(column);
        return left.has_value() == right.has_value() &&
               (!left || std::ranges::equal(*left, *right));
    });
}

}  // namespace jet
