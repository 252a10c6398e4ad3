#include "bells/suonerie.h"

#include "jet/integrity_check.h"
#include "tests/bells/full_sample.h"
#include "tests/end_to_end/mdb_export.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using jet::test::ErrorNumberOf;
using jet::test::ReadFile;
using jet::test::Sample;

const char kHeading[] = "Terminale,Locazione,Ora,Minuti,Giorni,Numero_Relè,Tempo_Relè\n";

TEST(BellQuery, AsksForTheRowsOfOneTerminal)
{
    EXPECT_EQ(BellQuery(4),
              u"SELECT DISTINCTROW Suonerie.Terminale, Suonerie.Locazione, Suonerie.Ora , "
              u"Suonerie.Giorni, Suonerie.Numero_Relè, Suonerie.Tempo_Relè, Suonerie.Minuti FROM "
              u"Suonerie WHERE ((Suonerie.Terminale=4));");
    EXPECT_TRUE(BellQuery(32).ends_with(u"WHERE ((Suonerie.Terminale=32));"));
}

/// With the version of its files, "97" or "2000".
class Suonerie : public testing::TestWithParam<const char*>
{
protected:
    /// A database with rings of terminals 1 and 4.
    void OpenFull() { Open("nimbo-full-"); }
    /// One of earlier years, without the table.
    void OpenOlder() { Open("nimbo-base-"); }

    std::string Exported(const std::string& table) const
    {
        return end_to_end::MdbExport(file, table, end_to_end::Heading::With);
    }
    void ExpectSound() const { EXPECT_EQ(jet::CheckIntegrity(file), std::vector<std::string>{}); }
    void MakeTable(std::u16string name)
    {
        database->CreateTable({std::move(name),
                               {{u"TERMINALE", jet::ColumnType::Integer, 2},
                                {u"LOCAZIONE", jet::ColumnType::Integer, 2},
                                {u"ORA", jet::ColumnType::Integer, 2},
                                {u"MINUTI", jet::ColumnType::Integer, 2},
                                {u"GIORNI", jet::ColumnType::Text, 10},
                                {u"NUMERO_RELÈ", jet::ColumnType::Integer, 2},
                                {u"TEMPO_RELÈ", jet::ColumnType::Integer, 2}},
                               {}});
    }

    const jet::test::ScratchFolder folder;
    std::filesystem::path file;
    std::unique_ptr<jet::Database> database;

private:
    void Open(const std::string& sample)
    {
        file = folder.Write("nimbo.mdb", ReadFile(Sample(sample + GetParam() + ".mdb")));
        database = jet::Database::Open(file, jet::OpenMode::ReadWrite);
    }
};

INSTANTIATE_TEST_SUITE_P(Access, Suonerie, testing::Values("97", "2000"),
                         [](const auto& version) { return std::string(version.param); });

TEST_P(Suonerie, AMissingTableIsMadeOnce)
{
    OpenOlder();
    EXPECT_EQ(ErrorNumberOf([&] { LoadBellRows(*database, 1); }), jet::kTableNotFound);
    CreaTabellaSuonerie(*database);
    const jet::test::FileBytes made = ReadFile(file);
    CreaTabellaSuonerie(*database);
    EXPECT_TRUE(ReadFile(file) == made);
    EXPECT_EQ(Exported("Suonerie"), kHeading);

    const jet::TableInfo table = database->TableDefs().back();
    EXPECT_EQ(table.name, u"Suonerie");
    EXPECT_TRUE(table.indexes.empty());
    ASSERT_EQ(table.columns.size(), 7U);
    for (const jet::ColumnInfo& column : table.columns) {
        const bool days = column.name == u"Giorni";
        EXPECT_EQ(column.type, days ? jet::ColumnType::Text : jet::ColumnType::Integer);
        EXPECT_EQ(column.size, days ? 8 : 2);
    }
    ExpectSound();
}

TEST_P(Suonerie, ATableInCapitalsIsUsedAsItIs)
{
    OpenOlder();
    MakeTable(u"SUONERIE");
    const std::size_t tables = database->TableDefs().size();
    CreaTabellaSuonerie(*database);
    EXPECT_EQ(database->TableDefs().size(), tables);
    const BellRow row{32, 7, 8, 30, QStringLiteral("01111100"), 1, 5};
    StoreBellRow(*database, row);
    EXPECT_EQ(LoadBellRows(*database, 32), std::vector{row});
    EXPECT_EQ(Exported("SUONERIE"),
              "TERMINALE,LOCAZIONE,ORA,MINUTI,GIORNI,NUMERO_RELÈ,TEMPO_RELÈ\n"
              "32,7,8,30,\"01111100\",1,5\n");
}

TEST_P(Suonerie, OtherNumberTypesOfAForeignTableAreReadAndWritten)
{
    OpenOlder();
    database->CreateTable({u"SUONERIE",
                           {{u"TERMINALE", jet::ColumnType::Long, 4},
                            {u"LOCAZIONE", jet::ColumnType::Byte, 1},
                            {u"ORA", jet::ColumnType::Double, 8},
                            {u"MINUTI", jet::ColumnType::Single, 4},
                            {u"GIORNI", jet::ColumnType::Text, 50},
                            {u"NUMERO_RELÈ", jet::ColumnType::Byte, 1},
                            {u"TEMPO_RELÈ", jet::ColumnType::Long, 4}},
                           {}});
    CreaTabellaSuonerie(*database);
    const BellRow row{32, 7, 8, 30, QStringLiteral("01111100"), 1, 5};
    StoreBellRow(*database, row);
    EXPECT_EQ(LoadBellRows(*database, 32), std::vector{row});
    EXPECT_EQ(Exported("SUONERIE"),
              "TERMINALE,LOCAZIONE,ORA,MINUTI,GIORNI,NUMERO_RELÈ,TEMPO_RELÈ\n"
              "32,7,8,30,\"01111100\",1,5\n");
    ExpectSound();
}

TEST_P(Suonerie, AForeignColumnOfTextIsNamed)
{
    OpenOlder();
    database->CreateTable({u"SUONERIE",
                           {{u"TERMINALE", jet::ColumnType::Integer, 2},
                            {u"LOCAZIONE", jet::ColumnType::Integer, 2},
                            {u"ORA", jet::ColumnType::Text, 5},
                            {u"MINUTI", jet::ColumnType::Integer, 2},
                            {u"GIORNI", jet::ColumnType::Text, 8},
                            {u"NUMERO_RELÈ", jet::ColumnType::Integer, 2},
                            {u"TEMPO_RELÈ", jet::ColumnType::Integer, 2}},
                           {}});
    const auto rows = database->OpenTable(u"SUONERIE");
    rows->AddNew();
    rows->SetField(u"TERMINALE", std::int32_t{32});
    rows->SetField(u"ORA", std::u16string(u"otto"));
    rows->Update();
    try {
        LoadBellRows(*database, 32);
        ADD_FAILURE() << "the text was taken for a number";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.Number(), jet::kWrongType);
        EXPECT_NE(std::string(error.what()).find("Ora"), std::string::npos) << error.what();
    }
}

TEST_P(Suonerie, ADatabaseThatCanOnlyBeReadGetsNoTable)
{
    OpenOlder();
    const jet::test::FileBytes before = ReadFile(file);
    database = jet::Database::Open(file);
    EXPECT_EQ(ErrorNumberOf([&] { CreaTabellaSuonerie(*database); }), jet::kReadOnly);
    EXPECT_TRUE(ReadFile(file) == before);
}

TEST_P(Suonerie, RowsOfOneTerminalAreLoadedInTheOrderOfTheFile)
{
    OpenFull();
    const QString days = QStringLiteral("01111110");
    EXPECT_EQ(LoadBellRows(*database, 4), (std::vector<BellRow>{{4, 1, 8, 5, days, 2, 5},
                                                                {4, 2, 12, 5, days, 2, 5},
                                                                {4, 3, 13, 35, days, 2, 5},
                                                                {4, 4, 17, 35, days, 2, 5}}));
    EXPECT_TRUE(LoadBellRows(*database, 2).empty());
    const BellRow late{2, 9, 1, 2, days, 1, 3};
    const BellRow early{2, 1, 4, 5, days, 2, 6};
    StoreBellRow(*database, late);
    StoreBellRow(*database, early);
    EXPECT_EQ(LoadBellRows(*database, 2), (std::vector{late, early})) << "not sorted by position";
}

TEST_P(Suonerie, NullIsAllOff)
{
    OpenFull();
    const auto rows = database->OpenTable(u"Suonerie");
    rows->AddNew();
    rows->SetField(u"Terminale", 9);
    rows->Update();
    EXPECT_EQ(LoadBellRows(*database, 9),
              (std::vector<BellRow>{{9, 0, 0, 0, QStringLiteral("00000000"), 0, 0}}));
}

TEST_P(Suonerie, AStoredRowReplacesTheOneOfItsPosition)
{
    OpenFull();
    StoreBellRow(*database, {4, 2, 23, 59, QStringLiteral("10000001"), 1, 99});
    std::string expected = kTerminal4;
    const std::string old = "4,2,12,5,\"01111110\",2,5";
    expected.replace(expected.find(old), old.size(), "4,2,23,59,\"10000001\",1,99");
    EXPECT_EQ(Exported("Suonerie"), std::string(kHeading) + kTerminal1 + expected);
    ExpectSound();
}

TEST_P(Suonerie, APositionWithoutARowGetsOne)
{
    OpenFull();
    StoreBellRow(*database, {4, 32, 6, 7, QStringLiteral("00000001"), 2, 10});
    EXPECT_EQ(Exported("Suonerie"),
              std::string(kHeading) + kTerminal1 + kTerminal4 + "4,32,6,7,\"00000001\",2,10\n");
    ExpectSound();
}

TEST_P(Suonerie, OfTwoRowsOfOnePositionTheFirstIsEdited)
{
    OpenFull();
    const auto rows = database->OpenTable(u"Suonerie");
    rows->AddNew();
    rows->SetField(u"Terminale", 4);
    rows->SetField(u"Locazione", 1);
    rows->Update();
    StoreBellRow(*database, {4, 1, 9, 9, QStringLiteral("11111111"), 1, 9});
    std::string expected = kTerminal4;
    const std::string old = "4,1,8,5,\"01111110\",2,5";
    expected.replace(expected.find(old), old.size(), "4,1,9,9,\"11111111\",1,9");
    EXPECT_EQ(Exported("Suonerie"), std::string(kHeading) + kTerminal1 + expected + "4,1,,,,,\n");
}

struct Misfit {
    const char* column;
    int error;
    BellRow row;
};

TEST_P(Suonerie, AValueThatItsColumnCannotHoldIsNamedAndNothingChanges)
{
    OpenFull();
    const QString days = QStringLiteral("00000000");
    const Misfit misfits[] = {
        {"Terminale", jet::kFieldOverflow, {40000, 1, 0, 0, days, 0, 0}},
        {"Locazione", jet::kFieldOverflow, {4, 32768, 0, 0, days, 0, 0}},
        {"Ora", jet::kFieldOverflow, {4, 1, -32769, 0, days, 0, 0}},
        {"Minuti", jet::kFieldOverflow, {4, 1, 0, 40000, days, 0, 0}},
        {"Giorni", jet::kFieldTooSmall, {4, 1, 0, 0, days + u'0', 0, 0}},
        {"Numero_Relè", jet::kFieldOverflow, {4, 1, 0, 0, days, 40000, 0}},
        {"Tempo_Relè", jet::kFieldOverflow, {4, 9, 0, 0, days, 0, 40000}},
    };
    const jet::test::FileBytes before = ReadFile(file);
    for (const Misfit& misfit : misfits) {
        try {
            StoreBellRow(*database, misfit.row);
            ADD_FAILURE() << misfit.column << " was stored";
        } catch (const jet::Error& error) {
            EXPECT_EQ(error.Number(), misfit.error) << misfit.column;
            EXPECT_NE(std::string(error.what()).find('"' + std::string(misfit.column) + '"'),
                      std::string::npos)
                << error.what();
        }
        EXPECT_TRUE(ReadFile(file) == before) << misfit.column;
    }
    StoreBellRow(*database, {4, 1, 7, 0, days, 1, 1});
    EXPECT_EQ(LoadBellRows(*database, 4).front().Ora, 7) << "the next one is stored";
}

}  // namespace
}  // namespace orlo
