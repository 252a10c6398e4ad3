#include "jet/table_writer.h"

#include "jet/column_encoder.h"
#include "jet/definition_counters.h"
#include "jet/long_value_writer.h"
#include "jet/row_store.h"
#include "jet/table_indexes.h"

#include <algorithm>

namespace jet
{

RowPointer TableWriter::Insert(RowImage image)
{
    DefinitionCounters counters(File(), Layout().page);
    for (const ColumnLayout& column : Layout().columns) {
        if (column.autonumber && column.type == ColumnType::Long) {
            SetValue(File().Format(), column, counters.NextAutonumber(), image);
        }
    }
    const RowPointer home = RowStore(File(), Layout()).Add(image.Join(File().Format()));
    counters.AddDistinctKeys(TableIndexes(File(), Layout()).Insert(table_.ReadRow(home), home));
    counters.AddRows(1);
    counters.Write();
    return home;
}

void TableWriter::Update(RowPointer home, const RowImage& image)
{
    const Row before = table_.ReadRow(home);
    RowStore(File(), Layout()).Replace(home, image.Join(File().Format()));
    DefinitionCounters counters(File(), Layout().page);
    const auto keys = TableIndexes(File(), Layout()).Update(before, table_.ReadRow(home), home);
    if (std::ranges::count(keys, 0) != std::ssize(keys)) {
        counters.AddDistinctKeys(keys);
        counters.Write();
    }
}

void TableWriter::Erase(RowPointer home)
{
    const Row row = table_.ReadRow(home);
    TableIndexes(File(), Layout()).Erase(row, home);
    for (const ColumnLayout& column : Layout().columns) {
        if (IsLong(column.type)) {
            if (const auto field = row.Field(column)) {
                EraseLongValue(File(), *field);
            }
        }
    }
    RowStore(File(), Layout()).Erase(home);
    DefinitionCounters counters(File(), Layout().page);
    counters.AddRows(-1);
    counters.Write();
}

}  // namespace jet
