#include "tests/jet/sample_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

namespace jet::test
{

namespace
{

using testing::HasSubstr;
using testing::Not;
using Numbers = std::vector<std::int32_t>;

/// A cursor on a table of a sample.
class Cursor
{
public:
    explicit Cursor(const char* sample, std::u16string_view table = u"TERMINALI")
        : database_(Database::Open(Sample(sample))), rows_(database_->OpenTable(table))
    {
    }

    Recordset* operator->() { return rows_.get(); }

    std::int32_t Number(std::u16string_view column)
    {
        return std::get<std::int32_t>(rows_->Field(column));
    }

    Numbers Remaining(std::u16string_view column)
    {
        Numbers numbers;
        for (; !rows_->AtEof(); rows_->MoveNext()) {
            numbers.push_back(Number(column));
        }
        return numbers;
    }

private:
    std::unique_ptr<Database> database_;
    std::unique_ptr<Recordset> rows_;
};

TEST(Cursor, RegisterInFileOrder)
{
    for (const char* sample : {"nimbo-base-97.mdb", "nimbo-base-2000.mdb"}) {
        Cursor rows(sample);
        EXPECT_EQ(rows->RecordCount(), 5u);
        EXPECT_EQ(rows.Remaining(u"Terminale"), (Numbers{1, 2, 3, 5, 12})) << sample;
    }
}

TEST(Cursor, ValuesOfTheRegister)
{
    Cursor rows("nimbo-full-2000.mdb");
    rows->MoveNext();
    EXPECT_EQ(rows->Field(u"Descrizione"), Value(Text(u"Perché no?")));
    EXPECT_EQ(rows->Field(u"Attivo"), Value(true));
    EXPECT_EQ(rows->Field(u"Ritardo"), Value(0.2f));
    EXPECT_EQ(rows->Field(u"Velocita"), Value(4800));
    EXPECT_EQ(rows->Field(u"Modem"), Value(Text()));
    rows->MoveLast();
    EXPECT_EQ(rows->Field(u"Modem"), Value(Null{}));
}

TEST(Cursor, NamesIgnoreCase)
{
    Cursor rows("nimbo-full-97.mdb", u"terminali");
    EXPECT_EQ(rows.Number(u"TERMINALE"), 1);
    EXPECT_EQ(rows.Number(u"terminale"), 1);
    rows->SetIndex(u"Terminale");
    EXPECT_EQ(Cursor("nimbo-full-2000.mdb", u"SUONERIE").Number(u"NUMERO_RELÈ"), 1);
}

TEST(Cursor, EndsOfATable)
{
    Cursor rows("nimbo-base-97.mdb");
    rows->MovePrevious();
    EXPECT_TRUE(rows->AtBof());
    EXPECT_FALSE(rows->AtEof());
    EXPECT_EQ(ErrorNumberOf([&] { rows->MovePrevious(); }), kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Field(u"Terminale"); }), kNoCurrentRecord);
    rows->MoveNext();
    EXPECT_EQ(rows.Number(u"Terminale"), 1);
    rows->MoveLast();
    EXPECT_EQ(rows.Number(u"Terminale"), 12);
    rows->MoveNext();
    EXPECT_TRUE(rows->AtEof());
    EXPECT_FALSE(rows->AtBof());
    EXPECT_EQ(ErrorNumberOf([&] { rows->MoveNext(); }), kNoCurrentRecord);
    rows->MovePrevious();
    EXPECT_EQ(rows.Number(u"Terminale"), 12);
}

TEST(Cursor, EmptyTable)
{
    Cursor rows("nimbo-32-2003.mdb", u"Suonerie");
    EXPECT_TRUE(rows->AtBof());
    EXPECT_TRUE(rows->AtEof());
    EXPECT_EQ(rows->RecordCount(), 0u);
    rows->MoveLast();
    EXPECT_TRUE(rows->AtEof());
    EXPECT_EQ(ErrorNumberOf([&] { rows->MoveNext(); }), kNoCurrentRecord);
}

TEST(Cursor, IndexOrderAndBack)
{
    Cursor rows("nimbo-range-2000.mdb");
    const Numbers file_order = rows.Remaining(u"Terminale");
    rows->SetIndex(u"TERMINALE");
    EXPECT_EQ(rows.Remaining(u"Terminale"), (Numbers{-1, 0, 1, 2, 33, 32767}));
    rows->SetIndex(u"");
    EXPECT_EQ(rows.Remaining(u"Terminale"), file_order);
}

TEST(Cursor, SeekAndGoOn)
{
    Cursor rows("nimbo-32-2003.mdb");
    rows->SetIndex(u"TERMINALE");
    rows->Seek({30});
    EXPECT_FALSE(rows->NoMatch());
    EXPECT_EQ(rows.Remaining(u"Terminale"), (Numbers{30, 31, 32}));
}

TEST(Cursor, SeekWithoutResultLeavesNoRow)
{
    Cursor rows("nimbo-base-97.mdb");
    rows->SetIndex(u"TERMINALE");
    rows->Seek({4});
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_FALSE(rows->AtBof());
    EXPECT_FALSE(rows->AtEof());
    EXPECT_EQ(ErrorNumberOf([&] { rows->Field(u"Terminale"); }), kNoCurrentRecord);
    EXPECT_EQ(ErrorNumberOf([&] { rows->MoveNext(); }), kNoCurrentRecord);
    rows->Seek({5});
    EXPECT_FALSE(rows->NoMatch());
    EXPECT_EQ(rows.Number(u"Terminale"), 5);
}

TEST(Cursor, SeekRefusesKeysThatTheIndexCannotHave)
{
    Cursor rows("nimbo-base-97.mdb");
    EXPECT_EQ(ErrorNumberOf([&] { rows->Seek({5}); }), kNoIndexSelected);
    EXPECT_EQ(ErrorNumberOf([&] { rows->SetIndex(u"PerNome"); }), kIndexNotFound);
    rows->SetIndex(u"TERMINALE");
    EXPECT_EQ(ErrorNumberOf([&] { rows->Seek({}); }), kInvalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Seek({5, 6}); }), kInvalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Seek({Text(u"5")}); }), kInvalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Seek({40000}); }), kInvalidArgument);
    EXPECT_EQ(rows.Number(u"Terminale"), 1) << "the cursor stays where it was";
}

TEST(Cursor, MissingColumnIsNamedAndNothingElse)
{
    Cursor rows("nimbo-base-97.mdb");
    try {
        rows->Field(u"Perché");
        FAIL() << "the column does not exist";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), kColumnNotFound);
        std::string text = error.what();
        EXPECT_THAT(text, HasSubstr("\"Perché\""));
        std::ranges::transform(text, text.begin(),
                               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        for (const char* word :
             {"ritardo", "card", "bidirezionale", "impianto", "azienda", "badge", "tentativi",
              "tipo", "modem", "priorita", "terminali", "nimbo", "/"}) {
            EXPECT_THAT(text, Not(HasSubstr(word)));
        }
    }
}

TEST(Database, WhatCannotBeOpened)
{
    const ScratchFolder folder;
    const FileBytes good = ReadFile(Sample("nimbo-empty-97.mdb"));
    FileBytes encoded = good;
    encoded[0x3E] ^= 1;
    FileBytes odd = good;
    odd.pop_back();
    struct Case {
        const char* name;
        std::filesystem::path path;
        int error;
    };
    const Case kCases[] = {
        {"missing", folder.Path() / "none.mdb", kFileNotFound},
        {"missing folder", folder.Path() / "none" / "nimbo.mdb", kFileNotFound},
        {"a folder", folder.Path(), kUnrecognisedFormat},
        {"empty", folder.Write("empty.mdb", {}), kUnrecognisedFormat},
        {"text", folder.Write("text.mdb", FileBytes(5000, 'x')), kUnrecognisedFormat},
        {"encoded", folder.Write("encoded.mdb", encoded), kEncodedFile},
        {"odd length", folder.Write("odd.mdb", odd), kDamagedFile},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(ErrorNumberOf([&] { Database::Open(c.path); }), c.error) << c.name;
    }
}

TEST(Database, MissingTable)
{
    const auto database = Database::Open(Sample("nimbo-empty-97.mdb"));
    EXPECT_EQ(ErrorNumberOf([&] { database->OpenTable(u"TERMINALI"); }), kTableNotFound);
}

TEST(Database, SystemTablesOpenByName)
{
    Cursor rows("nimbo-empty-97.mdb", u"MSysObjects");
    EXPECT_EQ(rows->RecordCount(), 8u);
    rows->SetIndex(u"ParentIdName");
    rows->Seek({0x0F000001, Text(u"msysaces")});
    EXPECT_EQ(rows.Number(u"Id"), 3);
}

}  // namespace

}  // namespace jet::test
