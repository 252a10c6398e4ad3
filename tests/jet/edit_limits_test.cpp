#include "tests/jet/office.h"

#include <algorithm>
#include <map>

// What an edit must not touch, and what must not be edited.

namespace jet::test
{

namespace
{

TEST(Edit, ReadOnlyDatabaseRefusesEveryChange)
{
    const auto database = Database::Open(Sample("nimbo-full-2000.mdb"));
    const auto rows = database->OpenTable(u"TERMINALI");
    EXPECT_EQ(ErrorNumberOf([&] { rows->Edit(); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { rows->AddNew(); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Delete(); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { database->BeginTrans(); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] {
                  database->AppendColumn(u"TERMINALI", {u"Nuova", ColumnType::Long});
              }),
              kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] {
                  database->CreateTable({u"Nuova", {{u"Uno", ColumnType::Long}}, {}});
              }),
              kReadOnly);
}

TEST(Edit, CharacterOutsideTheCodePageIsRefusedInJet3)
{
    Office office("nimbo-full-97.mdb");
    const auto rows = office.Terminal(3);
    rows->Edit();
    EXPECT_EQ(ErrorNumberOf([&] { rows->SetField(u"Descrizione", Text(u"Ω")); }), kWrongType);
}

// A text without a key can be there already; only what its index says must not change.
TEST(Edit, TextWithoutAKeyIsRefusedInAnIndexedColumn)
{
    Office office("nimbo-foreign-2000.mdb");
    const auto rows = office.Writable().OpenTable(u"Dipendenti");
    rows->Edit();
    rows->SetField(u"Cognome", Text(u"漢字"));
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kNotSupported);
    EXPECT_TRUE(office.Unchanged());
}

TEST(Edit, LongValuesAreCopiedByteForByteAndNotRewritten)
{
    Office office("nimbo-foreign-2000.mdb");
    const TableInfo table = Describe(office.Writable(), u"Dipendenti");
    auto expected = AllRows(office.Writable(), table);
    const auto name = std::ranges::find(table.columns, u"Nome", &ColumnInfo::name);
    ASSERT_NE(name, table.columns.end());
    const auto place = static_cast<std::size_t>(name - table.columns.begin());
    const auto rows = office.Writable().OpenTable(u"Dipendenti");
    for (ModelRow& row : expected) {
        row[place] = Text(30, u'ñ');
        rows->Edit();
        rows->SetField(u"Nome", row[place]);
        rows->Update();
        rows->MoveNext();
    }
    EXPECT_EQ(SortedTexts(office.Stored(u"Dipendenti")), SortedTexts(expected));
    office.ExpectSound();
}

TEST(Edit, LongValueColumnTakesNothingButNullInANewRow)
{
    Office office("nimbo-foreign-2000.mdb");
    const TableInfo table = Describe(office.Writable(), u"Dipendenti");
    const auto rows = office.Writable().OpenTable(u"Dipendenti");
    for (const ColumnInfo& column : table.columns) {
        if (column.type == ColumnType::Memo || column.type == ColumnType::Ole) {
            rows->AddNew();
            EXPECT_EQ(ErrorNumberOf([&] { rows->SetField(column.name, Null{}); }), 0);
            EXPECT_EQ(ErrorNumberOf([&] { rows->SetField(column.name, Text(u"x")); }),
                      kNotSupported);
        }
    }
    EXPECT_TRUE(office.Unchanged());
}

TEST(Edit, AutonumberGoesOnBehindTheLastOne)
{
    Office office("nimbo-foreign-2000.mdb");
    const auto rows = office.Writable().OpenTable(u"Timbrature");
    rows->SetIndex(u"PrimaryKey");
    rows->AddNew();
    EXPECT_EQ(ErrorNumberOf([&] { rows->SetField(u"Id", 7); }), kNotSupported);
    rows->Update();
    rows->MoveLast();
    EXPECT_EQ(rows->Field(u"Id"), Value(2251));
    office.ExpectSound();
}

TEST(Edit, ForeignTablesKeepTheirValuesWhateverHappensBesideThem)
{
    Office office("nimbo-foreign-2000.mdb");
    Database& database = office.Writable();
    std::map<std::u16string, std::vector<std::string>> before;
    for (const auto* table : {u"Dipendenti", u"Timbrature", u"Tariffe"}) {
        before[table] = SortedTexts(office.Stored(table));
    }
    database.CreateTable({u"Nuova", {{u"Uno", ColumnType::Long}}, {{u"P", {{u"Uno"}}, true}}});
    const auto added = database.OpenTable(u"Nuova");
    database.BeginTrans();
    for (int i = 0; i < 2000; ++i) {
        added->AddNew();
        added->SetField(u"Uno", i);
        added->Update();
    }
    for (added->MoveFirst(); !added->AtEof(); added->MoveNext()) {
        added->Delete();
    }
    database.CommitTrans();
    const auto rows = office.Terminals();
    rows->Edit();
    rows->SetField(u"Descrizione", Text(50, u'x'));
    rows->Update();
    for (const auto& [table, texts] : before) {
        EXPECT_EQ(SortedTexts(office.Stored(table)), texts);
    }
    office.ExpectSound();
}

TEST(OpenForWriting, RefusesWhatItCannotChangeSafely)
{
    const ScratchFolder folder;
    FileBytes encoded = ReadFile(Sample("nimbo-full-2000.mdb"));
    encoded[0x3E] ^= 1;
    EXPECT_EQ(ErrorNumberOf([&] {
                  Database::Open(folder.Write("codificato.mdb", encoded), OpenMode::ReadWrite);
              }),
              kEncodedFile);
    FileBytes cut = ReadFile(Sample("nimbo-full-2000.mdb"));
    cut.resize(cut.size() - 100);
    EXPECT_EQ(ErrorNumberOf(
                  [&] { Database::Open(folder.Write("troncato.mdb", cut), OpenMode::ReadWrite); }),
              kDamagedFile);
    EXPECT_EQ(
        ErrorNumberOf([&] { Database::Open(folder.Path() / "manca.mdb", OpenMode::ReadWrite); }),
        kFileNotFound);
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        ++files;
    }
    EXPECT_EQ(files, 2u) << "nothing was left beside them";
}

// The journal lies beside the file itself, so that all who open it find the same one.
TEST(OpenForWriting, ThroughALinkUsesTheJournalOfTheFile)
{
    const ScratchFolder folder;
    const auto path = folder.Write("vero.mdb", ReadFile(Sample("nimbo-full-2000.mdb")));
    const auto link = folder.Path() / "nome.mdb";
    std::filesystem::create_symlink(path, link);
    const auto database = Database::Open(link, OpenMode::ReadWrite);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "vero.mdb-journal"));
    EXPECT_EQ(ErrorNumberOf([&] { Database::Open(path, OpenMode::ReadWrite); }), kInUse);
}

}  // namespace

}  // namespace jet::test
