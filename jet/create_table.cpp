#include "jet/create_table.h"

#include "jet/catalog_writer.h"
#include "jet/definition_stream.h"
#include "jet/failure.h"
#include "jet/index_node.h"
#include "jet/map_pages.h"
#include "jet/name_map.h"
#include "jet/page_allocator.h"
#include "jet/row_image.h"
#include "jet/usage_map_writer.h"

#include <algorithm>
#include <utility>

namespace jet
{

namespace
{

constexpr std::size_t kMostIndexes = 32;
constexpr std::size_t kMostKeyColumns = 10;

RealIndex LayOutIndex(const TableDefinition::Index& index, NameMap& columns,
                      const TableLayout& table)
{
    RealIndex real;
    real.unique = index.unique || index.primary;
    real.required = index.required || index.primary;
    real.ignore_nulls = index.ignore_nulls && !index.primary;
    for (const TableDefinition::IndexColumn& column : index.columns) {
        const auto found = columns.Find(column.name);
        if (!found) {
            FailColumnNotFound(column.name);
        }
        if (IsLong(table.columns[*found].type) ||
            std::ranges::count(real.columns, *found, &KeyColumn::column) > 0) {
            FailInvalidIndex(index.name);
        }
        real.columns.push_back({*found, column.ascending});
    }
    if (real.columns.empty() || real.columns.size() > kMostKeyColumns) {
        FailInvalidIndex(index.name);
    }
    return real;
}

}  // namespace

TableLayout LayOut(const Format& format, const TableDefinition& table)
{
    CheckName(format, table.name);
    TableLayout layout;
    NameMap columns;
    for (const ColumnDefinition& column : table.columns) {
        CheckName(format, column.name);
        AppendLayout(format, column, layout);
        columns.Add(column.name, layout.columns.size() - 1);
    }
    if (layout.columns.empty()) {
        FailInvalidColumn(table.name);
    }
    if (table.indexes.size() > kMostIndexes) {
        FailTooManyIndexes();
    }
    NameMap indexes;
    bool has_primary = false;
    for (const TableDefinition::Index& index : table.indexes) {
        CheckName(format, index.name);
        const auto number = static_cast<std::uint32_t>(layout.real_indexes.size());
        if (indexes.Find(index.name)) {
            FailIndexExists(index.name);
        }
        if (index.primary && std::exchange(has_primary, true)) {
            FailPrimaryExists(index.name);
        }
        indexes.Add(index.name, number);
        layout.real_indexes.push_back(LayOutIndex(index, columns, layout));
        layout.logical_indexes.push_back({index.name, number, index.primary});
    }
    RowImage(layout).Join(format);  // a row with nothing but Null must fit on a page
    return layout;
}

void WriteNewDefinition(PageFile& file, std::uint32_t page, TableKind kind, TableLayout table,
                        MapPages& maps)
{
    table.data_map = maps.Add();
    table.free_map = maps.Add();
    for (RealIndex& index : table.real_indexes) {
        index.map = maps.Add();
        index.root = PageAllocator(file).Allocate(IndexPageImage(file.Format(), {}, page));
        SetInUsageMap(file, index.map, index.root);
    }
    std::vector<LongValueMaps> long_values;
    for (const ColumnLayout& column : table.columns) {
        if (IsLong(column.type)) {
            const RowPointer pages = maps.Add();
            long_values.push_back({column.id, pages, maps.Add()});
        }
    }
    WriteDefinitionStream(
        file, page,
        DefinitionBytes(file.Format(), ReadTextOrder(file.ReadHeader()), kind, table, long_values));
}

void CreateTable(PageFile& file, const TableDefinition& table)
{
    const TableLayout layout = LayOut(file.Format(), table);
    const std::uint32_t page = PageAllocator(file).Allocate(EmptyDefinitionPage(file.Format()));
    MapPages maps(file, 0);
    WriteNewDefinition(file, page, TableKind::User, layout, maps);
    AddTableToCatalog(file, page, table.name);
    file.NoteSchemaChange();
}

}  // namespace jet
