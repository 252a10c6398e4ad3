#include "jet/definition_stream.h"
#include "jet/table_definition.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

constexpr std::size_t kPage = kJet4.page_bytes;

/// A definition on pages 1..n, each as long as asked for, the last followed by page `last_next`.
FileBytes DefinitionPages(std::size_t pages, std::uint32_t length, std::uint32_t last_next = 0)
{
    FileBytes file = EmptyPages(pages);
    for (std::size_t i = 1; i <= pages; ++i) {
        Put32(file, i * kPage, 0x0102);
        Put32(file, i * kPage + 4, i == pages ? last_next : static_cast<std::uint32_t>(i + 1));
        file[i * kPage + 8] = static_cast<std::uint8_t>(i);
    }
    Put32(file, kPage + 8, length);
    return file;
}

std::vector<std::uint8_t> StreamOf(const FileBytes& bytes)
{
    const ScratchFolder folder;
    PageFile file(folder.Write("definition.mdb", bytes));
    return ReadDefinitionStream(file, 1);
}

TEST(DefinitionStream, JoinsPagesWithoutTheirHeaders)
{
    const auto stream = StreamOf(DefinitionPages(3, 2 * kPage));
    ASSERT_EQ(stream.size(), 2 * kPage);
    EXPECT_EQ(stream[kPage], 2) << "first byte behind the header of the second page";
    EXPECT_EQ(stream[2 * kPage - 8], 3);
}

TEST(DefinitionStream, DamageIsNoticed)
{
    EXPECT_EQ(ErrorNumberOf([] { StreamOf(DefinitionPages(2, 200, 1)); }), kDamagedFile)
        << "circle";
    EXPECT_EQ(ErrorNumberOf([] { StreamOf(DefinitionPages(1, 62)); }), kDamagedFile) << "short";
    EXPECT_EQ(ErrorNumberOf([] { StreamOf(DefinitionPages(1, kPage + 1)); }), kDamagedFile)
        << "long";
    EXPECT_EQ(ErrorNumberOf([] { StreamOf(DefinitionPages(1, 200, 9)); }), kDamagedFile)
        << "no page";
    EXPECT_EQ(ErrorNumberOf([] { StreamOf(EmptyPages(1)); }), kDamagedFile) << "no definition";
}

const TableInfo& Named(const std::vector<TableInfo>& tables, std::u16string_view name)
{
    for (const TableInfo& table : tables) {
        if (table.name == name) {
            return table;
        }
    }
    throw std::out_of_range("no such table");
}

TEST(TableDefs, RegisterInBothVersions)
{
    for (const char* sample : {"nimbo-full-97.mdb", "nimbo-full-2000.mdb"}) {
        SCOPED_TRACE(sample);
        const auto tables = Database::Open(Sample(sample))->TableDefs();
        ASSERT_EQ(tables.size(), 3u);
        EXPECT_EQ(tables[0].name, u"TERMINALI");
        EXPECT_EQ(tables[1].name, u"Output");
        EXPECT_EQ(tables[2].name, u"Suonerie");
        const auto& columns = tables[0].columns;
        ASSERT_EQ(columns.size(), 24u);
        EXPECT_EQ(columns[0].name, u"Terminale");
        EXPECT_EQ(columns[0].type, ColumnType::Integer);
        EXPECT_EQ(columns[0].size, 2);
        EXPECT_EQ(columns[2].name, u"Descrizione");
        EXPECT_EQ(columns[2].type, ColumnType::Text);
        EXPECT_EQ(columns[2].size, 50);
        EXPECT_EQ(columns[3].type, ColumnType::YesNo);
        EXPECT_EQ(columns[8].type, ColumnType::Single);
        EXPECT_EQ(columns[23].name, u"Priorita_Secondaria");
        ASSERT_EQ(tables[0].indexes.size(), 1u);
        const IndexInfo& index = tables[0].indexes[0];
        EXPECT_EQ(index.name, u"TERMINALE");
        EXPECT_EQ(index.columns, std::vector<std::u16string>{u"Terminale"});
        EXPECT_TRUE(index.primary);
        EXPECT_TRUE(index.unique);
    }
}

TEST(TableDefs, ForeignTables)
{
    const auto tables = Database::Open(Sample("nimbo-foreign-2000.mdb"))->TableDefs();
    const TableInfo& people = Named(tables, u"Dipendenti");
    std::vector<ColumnType> types;
    for (const ColumnInfo& column : people.columns) {
        types.push_back(column.type);
    }
    EXPECT_EQ(types,
              (std::vector{ColumnType::Long, ColumnType::Text, ColumnType::Text, ColumnType::Memo,
                           ColumnType::Ole, ColumnType::Date, ColumnType::Currency,
                           ColumnType::Guid, ColumnType::Double, ColumnType::Byte}));
    EXPECT_EQ(people.columns[3].size, 0);
    const IndexInfo& by_name = people.indexes.at(1);
    EXPECT_EQ(by_name.name, u"PerCognome");
    EXPECT_EQ(by_name.columns, (std::vector<std::u16string>{u"Cognome", u"Nome"}));
    EXPECT_FALSE(by_name.unique);
    EXPECT_FALSE(by_name.primary);
    EXPECT_EQ(Named(tables, u"Tariffe").columns[1].type, ColumnType::Numeric);
}

TEST(TableDefs, EmptyDatabaseHasNone)
{
    EXPECT_TRUE(Database::Open(Sample("nimbo-empty-97.mdb"))->TableDefs().empty());
    EXPECT_TRUE(Database::Open(Sample("nimbo-empty-jet4.mdb"))->TableDefs().empty());
}

}  // namespace

}  // namespace jet::test
