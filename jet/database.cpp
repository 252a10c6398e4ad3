#include "jet/database.h"

#include "jet/catalog.h"
#include "jet/failure.h"
#include "jet/file_name.h"
#include "jet/name_map.h"
#include "jet/table_cursor.h"

#include <utility>

namespace jet
{

struct Database::Impl {
    explicit Impl(const std::filesystem::path& path) : file(path), catalog(ReadCatalog(file))
    {
        for (std::size_t i = 0; i < catalog.size(); ++i) {
            tables.Add(catalog[i].name, i);
        }
    }

    PageFile file;
    std::vector<CatalogEntry> catalog;
    NameMap tables;
};

namespace
{

int PublicSize(const ColumnLayout& column, bool unicode)
{
    return column.type == ColumnType::Text && unicode ? column.length / 2 : column.length;
}

TableInfo Describe(std::u16string name, const TableLayout& table, bool unicode)
{
    TableInfo info{std::move(name), {}, {}};
    for (const ColumnLayout& column : table.columns) {
        info.columns.push_back({column.name, column.type, PublicSize(column, unicode)});
    }
    for (const LogicalIndex& index : table.logical_indexes) {
        const RealIndex& real = table.real_indexes[index.real];
        IndexInfo described{index.name, {}, index.primary, real.unique};
        for (const KeyColumn& key : real.columns) {
            described.columns.push_back(table.columns[key.column].name);
        }
        info.indexes.push_back(std::move(described));
    }
    return info;
}

}  // namespace

Database::Database(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

Database::~Database() = default;

std::unique_ptr<Database> Database::Open(const std::filesystem::path& path)
{
    return std::unique_ptr<Database>(new Database(std::make_unique<Impl>(FindFile(path))));
}

std::vector<TableInfo> Database::TableDefs() const
{
    std::vector<TableInfo> tables;
    for (const CatalogEntry& entry : impl_->catalog) {
        if (entry.user) {
            tables.push_back(Describe(entry.name, ReadTableDefinition(impl_->file, entry.page),
                                      impl_->file.Format().unicode));
        }
    }
    return tables;
}

std::unique_ptr<Recordset> Database::OpenTable(std::u16string_view name)
{
    const auto found = impl_->tables.Find(name);
    if (!found) {
        FailTableNotFound(name);
    }
    return std::make_unique<TableCursor>(
        impl_->file, std::make_shared<TableLayout>(
                         ReadTableDefinition(impl_->file, impl_->catalog[*found].page)));
}

}  // namespace jet
