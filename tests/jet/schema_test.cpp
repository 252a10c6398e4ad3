#include "jet/integrity_check.h"
#include "jet/journal.h"
#include "tests/jet/power_cut_storage.h"
#include "tests/jet/table_model.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";

/// The columns that the registers of later releases have and the base ones lack.
const std::vector<ColumnDefinition> kLaterColumns{
    {u"Ritardo", ColumnType::Single},           {u"NomeCard", ColumnType::Text, 20},
    {u"LenCard", ColumnType::Integer},          {u"Bidirezionale", ColumnType::YesNo},
    {u"InizioImpianto", ColumnType::Integer},   {u"LenImpianto", ColumnType::Integer},
    {u"InizioAzienda", ColumnType::Integer},    {u"LenAzienda", ColumnType::Integer},
    {u"InizioBadge", ColumnType::Integer},      {u"LenBadge", ColumnType::Integer},
    {u"Tentativi", ColumnType::Integer},        {u"Impianto", ColumnType::Integer},
    {u"Abilitazione_Modem", ColumnType::YesNo}, {u"TIPO", ColumnType::Integer},
    {u"Modem", ColumnType::Text, 20},           {u"Priorita_Secondaria", ColumnType::Integer}};

class SchemaTest : public testing::TestWithParam<Version>
{
protected:
    void Use(const char* jet3, const char* jet4)
    {
        storage_.Put(kName, ReadFile(Sample(GetParam() == Version::Jet3 ? jet3 : jet4)));
        database_ = Database::Open(kName, OpenMode::ReadWrite, storage_);
    }
    void UseBase() { Use("nimbo-base-97.mdb", "nimbo-base-2000.mdb"); }
    void UseEmpty()
    {
        Database::Create(kName, GetParam(), storage_);
        database_ = Database::Open(kName, OpenMode::ReadWrite, storage_);
    }
    void ExpectSound() { EXPECT_EQ(CheckIntegrity(kName, storage_), std::vector<std::string>{}); }

    int AppendError(const ColumnDefinition& column)
    {
        return ErrorNumberOf([&] { database_->AppendColumn(u"TERMINALI", column); });
    }
    int CreateError(const TableDefinition& table)
    {
        return ErrorNumberOf([&] { database_->CreateTable(table); });
    }

    PowerCutStorage storage_;
    std::unique_ptr<Database> database_;
};

TEST_P(SchemaTest, SixteenColumnsOneByOneLeaveTheRowsAsTheyWere)
{
    UseBase();
    const TableInfo old = Describe(*database_, u"TERMINALI");
    const auto rows_before = SortedTexts(AllRows(*database_, old));
    std::size_t columns = old.columns.size();
    for (const ColumnDefinition& column : kLaterColumns) {
        database_->AppendColumn(u"TERMINALI", column);
        const auto reader = Database::Open(kName, OpenMode::ReadOnly, storage_);
        const TableInfo now = Describe(*reader, u"TERMINALI");
        ASSERT_EQ(now.columns.size(), ++columns);
        EXPECT_EQ(now.columns.back().name, column.name);
        EXPECT_EQ(now.columns.back().type, column.type);
        if (column.type == ColumnType::Text) {
            EXPECT_EQ(now.columns.back().size, column.size);
        }
        EXPECT_EQ(SortedTexts(AllRows(*reader, old)), rows_before);
        const auto row = reader->OpenTable(u"TERMINALI");
        EXPECT_EQ(row->Field(column.name),
                  column.type == ColumnType::YesNo ? Value(false) : Value(Null{}));
        ExpectSound();
    }
}

TEST_P(SchemaTest, NewColumnsTakeValuesInOldAndNewRows)
{
    UseBase();
    const auto rows = database_->OpenTable(u"TERMINALI");
    for (const ColumnDefinition& column : kLaterColumns) {
        database_->AppendColumn(u"TERMINALI", column);
    }
    rows->Edit();
    rows->SetField(u"TIPO", 7);
    rows->SetField(u"Modem", Text(u"0464 910685"));
    rows->SetField(u"Bidirezionale", true);
    rows->Update();
    rows->MoveNext();
    EXPECT_EQ(rows->Field(u"TIPO"), Value(Null{}));
    rows->MovePrevious();
    EXPECT_EQ(rows->Field(u"TIPO"), Value(7));
    EXPECT_EQ(rows->Field(u"Modem"), Value(Text(u"0464 910685")));
    EXPECT_EQ(rows->Field(u"Bidirezionale"), Value(true));
    EXPECT_EQ(rows->Field(u"NomeCard"), Value(Null{}));
    ExpectSound();
}

TEST_P(SchemaTest, DefinitionGrowsOntoFurtherPagesUpTo255Columns)
{
    UseBase();
    const std::size_t present = Describe(*database_, u"TERMINALI").columns.size();
    for (std::size_t i = present; i < 255; ++i) {
        const std::u16string name =
            std::u16string(58, u'è') + char16_t(u'a' + i / 26) + char16_t(u'a' + i % 26);
        database_->AppendColumn(u"TERMINALI",
                                {name, i % 2 == 0 ? ColumnType::Text : ColumnType::YesNo, 1});
    }
    EXPECT_EQ(AppendError({u"Troppo", ColumnType::YesNo}), kTooManyColumns);
    EXPECT_EQ(Describe(*database_, u"TERMINALI").columns.size(), 255u);
    const auto rows = database_->OpenTable(u"TERMINALI");
    rows->Edit();
    rows->SetField(std::u16string(58, u'è') + u"jm", Text(u"x"));
    rows->Update();
    EXPECT_EQ(rows->Field(std::u16string(58, u'è') + u"jm"), Value(Text(u"x")));
    ExpectSound();
}

TEST_P(SchemaTest, ColumnThatCannotBeIsRefused)
{
    UseBase();
    const FileBytes before = storage_.Content(kName);
    EXPECT_EQ(AppendError({u"TERMINALE", ColumnType::Long}), kColumnExists) << "in another case";
    EXPECT_EQ(AppendError({u"", ColumnType::Long}), kInvalidName);
    EXPECT_EQ(AppendError({u"a.b", ColumnType::Long}), kInvalidName);
    EXPECT_EQ(AppendError({u" a", ColumnType::Long}), kInvalidName);
    EXPECT_EQ(AppendError({std::u16string(65, u'a'), ColumnType::Long}), kInvalidName);
    EXPECT_EQ(AppendError({u"Testo", ColumnType::Text, 0}), kInvalidColumn);
    EXPECT_EQ(AppendError({u"Testo", ColumnType::Text, 256}), kInvalidColumn);
    EXPECT_EQ(AppendError({u"Numerico", ColumnType::Numeric}), kInvalidColumn);
    EXPECT_EQ(ErrorNumberOf([&] {
                  database_->AppendColumn(u"Manca", {u"a", ColumnType::Long});
              }),
              kTableNotFound);
    EXPECT_EQ(ErrorNumberOf([&] {
                  database_->AppendColumn(u"MSysObjects", {u"a", ColumnType::Long});
              }),
              kReadOnly);
    EXPECT_EQ(storage_.Content(kName), before);
}

TEST_P(SchemaTest, MemoColumnGetsMapsOfItsOwn)
{
    UseBase();
    database_->AppendColumn(u"TERMINALI", {u"Nota", ColumnType::Memo});
    database_->AppendColumn(u"TERMINALI", {u"Figura", ColumnType::Ole});
    EXPECT_EQ(database_->OpenTable(u"TERMINALI")->Field(u"Nota"), Value(Null{}));
    ExpectSound();
}

TEST_P(SchemaTest, NewTableIsWhatWasAskedFor)
{
    UseEmpty();
    database_->CreateTable({u"Orari",
                            {{u"Numero", ColumnType::Integer},
                             {u"Nome", ColumnType::Text, 30},
                             {u"Attivo", ColumnType::YesNo}},
                            {{u"Chiave", {{u"Numero"}}, true},
                             {u"Nomi", {{u"Nome", false}, {u"Numero"}}, false, true}}});
    const auto reader = Database::Open(kName, OpenMode::ReadOnly, storage_);
    const TableInfo table = Describe(*reader, u"Orari");
    ASSERT_EQ(table.columns.size(), 3u);
    EXPECT_EQ(table.columns[1].name, u"Nome");
    EXPECT_EQ(table.columns[1].size, 30);
    ASSERT_EQ(table.indexes.size(), 2u);
    EXPECT_TRUE(table.indexes[0].primary && table.indexes[0].unique);
    EXPECT_FALSE(table.indexes[1].primary);
    EXPECT_EQ(table.indexes[1].columns, (std::vector<std::u16string>{u"Nome", u"Numero"}));
    EXPECT_EQ(reader->OpenTable(u"Orari")->RecordCount(), 0u);
    ExpectSound();
}

TEST_P(SchemaTest, TableThatCannotBeIsRefused)
{
    UseBase();
    const FileBytes before = storage_.Content(kName);
    const std::vector<ColumnDefinition> one{{u"Uno", ColumnType::Long}};
    const TableDefinition::Index index{u"I", {{u"Uno"}}};
    const TableDefinition::Index primary{u"P", {{u"Uno"}}, true};
    EXPECT_EQ(CreateError({u"terminali", one, {}}), kTableExists);
    EXPECT_EQ(CreateError({u"", one, {}}), kInvalidName);
    EXPECT_EQ(CreateError({u"T", {}, {}}), kInvalidColumn);
    EXPECT_EQ(CreateError({u"T", {one[0], {u"uno", ColumnType::Byte}}, {}}), kColumnExists);
    EXPECT_EQ(CreateError({u"T", one, {{u"I", {{u"Due"}}}}}), kColumnNotFound);
    EXPECT_EQ(CreateError({u"T", one, {{u"I", {}}}}), kInvalidIndex);
    EXPECT_EQ(CreateError({u"T", one, {{u"I", {{u"Uno"}, {u"uno"}}}}}), kInvalidIndex);
    EXPECT_EQ(CreateError({u"T", {{u"M", ColumnType::Memo}}, {{u"I", {{u"M"}}}}}), kInvalidIndex);
    EXPECT_EQ(CreateError({u"T", one, {index, index}}), kIndexExists);
    EXPECT_EQ(CreateError({u"T", one, {primary, {u"Q", {{u"Uno"}}, true}}}), kPrimaryExists);
    EXPECT_EQ(CreateError({u"T", one, std::vector(33, index)}), kTooManyIndexes);
    EXPECT_EQ(CreateError({u"T", std::vector(256, one[0]), {}}), kColumnExists);
    EXPECT_EQ(storage_.Content(kName), before);
}

TEST_P(SchemaTest, FileOfAnotherSortOrderTakesNoNewTable)
{
    storage_.Put(kName, {});
    FileBytes bytes =
        ReadFile(Sample(GetParam() == Version::Jet3 ? "nimbo-base-97.mdb" : "nimbo-base-2000.mdb"));
    // The sort order of the column Name of MSysObjects: found behind its type and id.
    const bool jet3 = GetParam() == Version::Jet3;
    const std::size_t page = jet3 ? 2048 : 4096;
    const std::size_t block = jet3 ? 18 : 25;
    const std::size_t counters = jet3 ? 43 + 2 * 8 : 63 + 2 * 12;
    for (std::size_t i = 0; i < 17; ++i) {
        const std::size_t at = 2 * page + counters + block * i;
        if (bytes[at] == 10) {
            Put16(bytes, at + (jet3 ? 9 : 11), 0x0411);
        }
    }
    storage_.Put(kName, bytes);
    database_ = Database::Open(kName, OpenMode::ReadWrite, storage_);
    EXPECT_EQ(CreateError({u"T", {{u"Uno", ColumnType::Long}}, {}}), kNotSupported);
    EXPECT_EQ(AppendError({u"Uno", ColumnType::Long}), 0) << "that needs no key";
}

TEST_P(SchemaTest, NewDatabaseIsEmptySoundAndNeverReplacesAFile)
{
    Database::Create(kName, GetParam(), storage_);
    EXPECT_EQ(ErrorNumberOf([&] { Database::Create(kName, GetParam(), storage_); }), kFileExists);
    EXPECT_FALSE(storage_.Exists("nimbo.mdb-nuovo"));
    ExpectSound();
    const auto database = Database::Open(kName, OpenMode::ReadOnly, storage_);
    EXPECT_TRUE(database->TableDefs().empty());
    // The header page is the one of a file made by somebody else.
    const FileBytes sample = ReadFile(
        Sample(GetParam() == Version::Jet3 ? "nimbo-empty-97.mdb" : "nimbo-empty-jet4.mdb"));
    const std::ptrdiff_t page = GetParam() == Version::Jet3 ? 2048 : 4096;
    const FileBytes made = storage_.Content(kName);
    EXPECT_TRUE(std::equal(made.begin(), made.begin() + page, sample.begin()));
}

TEST_P(SchemaTest, NewDatabaseDoesNotTakeOverTheJournalOfAnEarlierFile)
{
    {
        PowerCutStorage other;
        other.Put("x", {});
        const auto file = other.Open("x", OpenMode::ReadWrite);
        const std::size_t page = GetParam() == Version::Jet3 ? 2048 : 4096;
        WriteJournal(*file, {3, {{1, PageImage(page, 0xEE)}}}, page);
        storage_.Put("nimbo.mdb-journal", other.Content("x"));
    }
    Database::Create(kName, GetParam(), storage_);
    ExpectSound();
}

INSTANTIATE_TEST_SUITE_P(Versions, SchemaTest, testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) {
                             return version.param == Version::Jet3 ? "Jet3" : "Jet4";
                         });

}  // namespace

}  // namespace jet::test
