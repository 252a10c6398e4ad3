#include "jet/system_tables.h"

#include "jet/create_table.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr int kLongest = 255;
constexpr std::int32_t kRootContainer = 0x0F000000;
constexpr std::int32_t kDatabasesContainer = 0x0F000002;
constexpr std::int32_t kRelationsContainer = 0x0F000003;
constexpr std::int32_t kDatabaseObject = 0x10000000;
constexpr std::uint32_t kSystemFlag = 0x80000000;

using Index = TableDefinition::Index;

Index Plain(const char16_t* name, std::vector<TableDefinition::IndexColumn> columns)
{
    return {name, std::move(columns), false, false, false, false};
}

TableDefinition Objects()
{
    using enum ColumnType;
    Index by_name = Plain(u"ParentIdName", {{u"ParentId"}, {u"Name"}});
    by_name.unique = true;
    Index by_id = Plain(u"Id", {{u"Id"}});
    by_id.primary = true;
    return {u"MSysObjects",
            {{u"Id", Long},
             {u"ParentId", Long},
             {u"Name", Text, kLongest},
             {u"Type", Integer},
             {u"DateCreate", Date},
             {u"DateUpdate", Date},
             {u"Owner", Binary, kLongest},
             {u"Flags", Long},
             {u"Database", Memo},
             {u"Connect", Memo},
             {u"ForeignName", Text, kLongest},
             {u"RmtInfoShort", Binary, kLongest},
             {u"RmtInfoLong", Ole},
             {u"Lv", Ole},
             {u"LvProp", Ole},
             {u"LvModule", Ole},
             {u"LvExtra", Ole}},
            {by_name, by_id}};
}

TableDefinition Permissions()
{
    using enum ColumnType;
    Index by_object = Plain(u"ObjectId", {{u"ObjectId"}});
    by_object.required = true;
    return {
        u"MSysACEs",
        {{u"ObjectId", Long}, {u"SID", Binary, kLongest}, {u"ACM", Long}, {u"FInheritable", YesNo}},
        {by_object}};
}

TableDefinition Queries(const Format& format)
{
    using enum ColumnType;
    Index by_object = Plain(u"ObjectIdAttribute", {{u"ObjectId"}, {u"Attribute"}, {u"Order"}});
    by_object.primary = true;
    TableDefinition table{u"MSysQueries",
                          {{u"ObjectId", Long},
                           {u"Attribute", Byte},
                           {u"Order", Binary, kLongest},
                           {u"Name1", Text, kLongest},
                           {u"Name2", Text, kLongest},
                           {u"Expression", Memo},
                           {u"Flag", Integer}},
                          {by_object}};
    if (format.unicode) {
        table.columns.push_back({u"LvExtra", Long});
    }
    return table;
}

TableDefinition Relationships()
{
    using enum ColumnType;
    TableDefinition table{u"MSysRelationships",
                          {{u"szRelationship", Text, kLongest},
                           {u"grbit", Long},
                           {u"ccolumn", Long},
                           {u"icolumn", Long},
                           {u"szObject", Text, kLongest},
                           {u"szColumn", Text, kLongest},
                           {u"szReferencedObject", Text, kLongest},
                           {u"szReferencedColumn", Text, kLongest}},
                          {}};
    for (const char16_t* name : {u"szRelationship", u"szObject", u"szReferencedObject"}) {
        Index index = Plain(name, {{name}});
        index.ignore_nulls = true;
        table.indexes.push_back(std::move(index));
    }
    return table;
}

/// Users and groups as the file names them. In Jet 4 their ids are masked with bytes that go with
/// the date of the header page; this pair belongs together.
struct Users {
    Binary engine;
    Binary admin;
    Binary users;
    Binary creator;
};

Users UsersOf(const Format& format)
{
    return format.unicode ? Users{{0x65, 0x89}, {0x64, 0x8B}, {0x65, 0x8B}, {0x65, 0x8E}}
                          : Users{{0x02, 0x03}, {0x03, 0x01}, {0x02, 0x01}, {0x02, 0x04}};
}

}  // namespace

std::vector<TableDefinition> SystemTables(const Format& format)
{
    return {Objects(), Permissions(), Queries(format), Relationships()};
}

// Differs from a user's table in three things: binary columns of Jet 4 are twice as long, primary
// keys do without the flag "required", and indexes are listed by name.
TableLayout LayOutSystemTable(const Format& format, const TableDefinition& table)
{
    TableLayout layout = LayOut(format, table);
    for (ColumnLayout& column : layout.columns) {
        if (format.unicode && column.type == ColumnType::Binary) {
            column.length = 2 * kLongest;
        }
    }
    for (const LogicalIndex& index : layout.logical_indexes) {
        if (index.primary) {
            layout.real_indexes[index.real].required = false;
        }
    }
    std::ranges::sort(layout.logical_indexes, {}, &LogicalIndex::name);
    return layout;
}

std::vector<CatalogRow> FirstObjects(const Format& format)
{
    constexpr std::int32_t kTable = 1;
    constexpr std::int32_t kDatabase = 2;
    constexpr std::int32_t kContainer = 3;
    const Users users = UsersOf(format);
    return {
        {kTablesContainer, kRootContainer, u"Tables", kContainer, kSystemFlag, users.engine},
        {kDatabasesContainer, kRootContainer, u"Databases", kContainer, kSystemFlag, users.engine},
        {kRelationsContainer, kRootContainer, u"Relationships", kContainer, kSystemFlag,
         users.engine},
        {2, kTablesContainer, u"MSysObjects", kTable, kSystemFlag, users.engine},
        {3, kTablesContainer, u"MSysACEs", kTable, kSystemFlag, users.engine},
        {4, kTablesContainer, u"MSysQueries", kTable, kSystemFlag, users.engine},
        {5, kTablesContainer, u"MSysRelationships", kTable, kSystemFlag, users.engine},
        {kDatabaseObject, kDatabasesContainer, u"MSysDb", kDatabase, kSystemFlag, users.admin},
    };
}

std::vector<PermissionRow> FirstPermissions(const Format& format)
{
    const auto [engine, admin, users, creator] = UsersOf(format);
    return {
        {kTablesContainer, users, 0xFFEFF, true},
        {kTablesContainer, admin, 0x60001, false},
        {kTablesContainer, creator, 0xF00FE, true},
        {kDatabasesContainer, admin, 0x60000, false},
        {kRelationsContainer, users, 0xFFFFF, true},
        {kRelationsContainer, admin, 0x60001, false},
        {kRelationsContainer, creator, 0xF00FE, true},
        {kDatabaseObject, users, 0xE, false},
        {kDatabaseObject, admin, 0x6000E, false},
        {2, users, 0x14, false},
        {2, admin, 0x60000, false},
        {3, admin, 0x60000, false},
        {4, users, 0x14, false},
        {4, admin, 0x60000, false},
        {5, users, 0x14, false},
        {5, admin, 0xE0000, false},
    };
}

}  // namespace jet
