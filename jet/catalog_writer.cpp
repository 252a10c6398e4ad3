#include "jet/catalog_writer.h"

#include "jet/column_encoder.h"
#include "jet/column_value.h"
#include "jet/failure.h"
#include "jet/file_order.h"
#include "jet/table_writer.h"

#include <algorithm>
#include <utility>

namespace jet
{

namespace
{

constexpr std::int32_t kTableType = 1;
constexpr std::int32_t kDatabaseType = 2;
constexpr std::int32_t kFullRights = 0x000FFEFF;

Table OpenSystemTable(PageFile& file, std::uint32_t page)
{
    return Table(file, std::make_shared<TableLayout>(ReadTableDefinition(file, page)));
}

const ColumnLayout& ColumnNamed(const Table& table, std::u16string_view name)
{
    const auto& columns = table.Definition().columns;
    const auto found = std::ranges::find(columns, name, &ColumnLayout::name);
    if (found == columns.end()) {
        FailDamaged(table.Definition().page, "catalogo delle tabelle illeggibile");
    }
    return *found;
}

using NamedValues = std::vector<std::pair<std::u16string_view, Value>>;

void AddRow(PageFile& file, std::uint32_t page, const NamedValues& values)
{
    const Table table = OpenSystemTable(file, page);
    RowImage row(table.Definition());
    for (const auto& [name, value] : values) {
        SetValue(file.Format(), ColumnNamed(table, name), value, row);
    }
    TableWriter(table).Insert(std::move(row));
}

/// Calls `visit` with a function that gives a column of the row.
template <typename Visit>
void ForEachRow(PageFile& file, std::uint32_t page, const Visit& visit)
{
    Table table = OpenSystemTable(file, page);
    FileOrder order(table);
    for (auto at = order.First(); at; at = order.Next()) {
        const Row row = table.ReadRow(*at);
        visit([&](std::u16string_view name) {
            return ReadColumn(file, row, ColumnNamed(table, name));
        });
    }
}

/// The owner of an object of a type and name.
Binary OwnerOf(PageFile& file, std::int32_t type, std::u16string_view name)
{
    Binary owner;
    ForEachRow(file, kObjectsPage, [&](const auto& field) {
        if (field(u"Type") == Value(type) && field(u"Name") == Value(Text(name))) {
            const Value value = field(u"Owner");
            if (const auto* bytes = std::get_if<Binary>(&value)) {
                owner = *bytes;
            }
        }
    });
    if (owner.empty()) {
        FailDamaged(kObjectsPage, "catalogo delle tabelle senza proprietario");
    }
    return owner;
}

/// Who creates an object: the engine's own id (02 03) with another last byte (02 04). In Jet 4 the
/// bytes are masked, differently in every file, but the same in all ids of a file.
Binary CreatorOf(PageFile& file)
{
    constexpr std::int32_t kContainerType = 3;
    Binary creator = OwnerOf(file, kContainerType, u"Tables");
    creator.back() = static_cast<std::uint8_t>(creator.back() ^ 0x03 ^ 0x04);
    return creator;
}

}  // namespace

void AddObject(PageFile& file, const CatalogRow& row)
{
    const Date now{file.System().LocalTime()};
    AddRow(file, kObjectsPage,
           {{u"Id", row.id},
            {u"ParentId", row.parent},
            {u"Name", Text(row.name)},
            {u"Type", row.type},
            {u"DateCreate", now},
            {u"DateUpdate", now},
            {u"Owner", row.owner},
            {u"Flags", static_cast<std::int32_t>(row.flags)}});
}

void AddPermission(PageFile& file, const PermissionRow& row)
{
    AddRow(file, kPermissionsPage,
           {{u"ObjectId", row.object},
            {u"SID", row.user},
            {u"ACM", row.rights},
            {u"FInheritable", row.inheritable}});
}

// The catalog's index on container and name tells whether the name is taken.
void AddTableToCatalog(PageFile& file, std::uint32_t page, std::u16string_view name)
{
    const auto id = static_cast<std::int32_t>(page);
    try {
        AddObject(file, {id, kTablesContainer, name, kTableType, 0,
                         OwnerOf(file, kDatabaseType, u"MSysDb")});
    } catch (const Error& error) {
        if (error.Number() == kDuplicateKey) {
            FailTableExists(name);
        }
        throw;
    }
    const Binary creator = CreatorOf(file);
    std::vector<Binary> users;
    ForEachRow(file, kPermissionsPage, [&](const auto& field) {
        const Value user = field(u"SID");
        if (field(u"ObjectId") == Value(kTablesContainer) &&
            field(u"FInheritable") == Value(true) && user != Value(creator) && !IsNull(user)) {
            const auto* sid = std::get_if<Binary>(&user);
            if (sid == nullptr) {
                FailDamaged(kPermissionsPage, "utente che non è una sequenza di byte");
            }
            users.push_back(*sid);
        }
    });
    for (Binary& user : users) {
        AddPermission(file, {id, std::move(user), kFullRights, false});
    }
}

}  // namespace jet
