#include "jet/database.h"

#include "jet/append_column.h"
#include "jet/catalog.h"
#include "jet/create_database.h"
#include "jet/create_table.h"
#include "jet/failure.h"
#include "jet/file_name.h"
#include "jet/name_map.h"
#include "jet/table_cursor.h"

#include <utility>

namespace jet
{

struct Database::Impl {
    Impl(const std::filesystem::path& path, OpenMode mode, Storage& storage)
        : file(path, mode, storage)
    {
        LoadCatalog();
    }

    void LoadCatalog()
    {
        catalog = ReadCatalog(file);
        tables = {};
        for (std::size_t i = 0; i < catalog.size(); ++i) {
            tables.Add(catalog[i].name, i);
        }
        schema_changes_seen = file.SchemaChanges();
    }

    void Synchronise()
    {
        if (schema_changes_seen != file.SchemaChanges()) {
            LoadCatalog();
        }
    }

    /// First page of the table's definition.
    std::uint32_t PageOf(std::u16string_view name)
    {
        Synchronise();
        const auto found = tables.Find(name);
        if (!found) {
            FailTableNotFound(name);
        }
        return catalog[*found].page;
    }

    PageFile file;
    std::vector<CatalogEntry> catalog;
    NameMap tables;
    std::uint64_t schema_changes_seen = 0;
};

namespace
{

// The journal lies beside the file itself, whatever link leads to it.
std::filesystem::path RealName(const std::filesystem::path& path)
{
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? path : real;
}

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

std::unique_ptr<Database> Database::Open(const std::filesystem::path& path, OpenMode mode,
                                         Storage& storage)
{
    return std::unique_ptr<Database>(
        new Database(std::make_unique<Impl>(RealName(FindFile(path)), mode, storage)));
}

void Database::Create(const std::filesystem::path& path, Version version, Storage& storage)
{
    CreateDatabase(storage, path, version);
}

std::vector<TableInfo> Database::TableDefs() const
{
    impl_->Synchronise();
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
    return std::make_unique<TableCursor>(impl_->file, impl_->PageOf(name));
}

std::unique_ptr<Recordset> Database::OpenQuery(std::u16string_view statement)
{
    Query query = ParseQuery(statement);
    const std::uint32_t page = impl_->PageOf(query.table);
    return std::make_unique<TableCursor>(impl_->file, page, std::move(query));
}

void Database::AppendColumn(std::u16string_view table, const ColumnDefinition& column)
{
    const std::uint32_t page = impl_->PageOf(table);
    impl_->file.Change([&] { jet::AppendColumn(impl_->file, page, column); });
}

void Database::CreateTable(const TableDefinition& table)
{
    impl_->file.Change([&] { jet::CreateTable(impl_->file, table); });
}

void Database::BeginTrans()
{
    impl_->file.BeginTransaction();
}

void Database::CommitTrans()
{
    impl_->file.CommitTransaction();
}

void Database::Rollback()
{
    impl_->file.RollBackTransaction();
}

}  // namespace jet
