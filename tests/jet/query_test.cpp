#include "jet/query.h"

#include "jet/integrity_check.h"
#include "tests/jet/power_cut_storage.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

using Names = std::vector<std::u16string>;

constexpr std::u16string_view kRings =
    u"SELECT DISTINCTROW Suonerie.Terminale, Suonerie.Locazione, Suonerie.Ora , Suonerie.Giorni, "
    u"Suonerie.Numero_Relè, Suonerie.Tempo_Relè, Suonerie.Minuti FROM Suonerie WHERE "
    u"((Suonerie.Terminale=4));";

TEST(ParseQuery, StatementWithQualifiedNamesAndParentheses)
{
    const Query query = ParseQuery(kRings);
    EXPECT_EQ(query.table, u"Suonerie");
    EXPECT_EQ(query.columns, (Names{u"Terminale", u"Locazione", u"Ora", u"Giorni", u"Numero_Relè",
                                    u"Tempo_Relè", u"Minuti"}));
    ASSERT_TRUE(query.condition);
    EXPECT_EQ(query.condition->column, u"Terminale");
    EXPECT_EQ(query.condition->value, Value(4.0));
}

struct Accepted {
    const char16_t* statement;
    const char16_t* column;
    Value value;
};

TEST(ParseQuery, Conditions)
{
    const Accepted kAccepted[]{
        {u"select a from t where b = -2.5", u"b", -2.5},
        {u"SELECT a FROM t WHERE (b=7)", u"b", 7.0},
        {u"SELECT a FROM t WHERE [b c]='x'", u"b c", Text(u"x")},
        {u"SELECT a FROM t WHERE t.b='it''s' ;", u"b", Text(u"it's")},
        {u"SELECT a FROM t WHERE T.b=\"a 'b' \"\"c\"\"\"", u"b", Text(u"a 'b' \"c\"")},
        {u"SELECT a FROM t WHERE b=''", u"b", Text()},
        {u"SELECT a\nFROM t\tWHERE b=0;", u"b", 0.0},
    };
    for (const Accepted& accepted : kAccepted) {
        const Query query = ParseQuery(accepted.statement);
        ASSERT_TRUE(query.condition);
        EXPECT_EQ(query.condition->column, accepted.column);
        EXPECT_EQ(query.condition->value, accepted.value);
        EXPECT_EQ(query.columns, Names{u"a"});
        EXPECT_EQ(query.table, u"t");
    }
    EXPECT_FALSE(ParseQuery(u"SELECT a FROM t").condition);
    EXPECT_FALSE(ParseQuery(u"  SELECT [a] , [t].[b] FROM [t] ; ").condition);
}

TEST(ParseQuery, AnythingElseIsASyntaxError)
{
    for (const auto* statement : {u"",
                                  u"SELECT",
                                  u"SELECT FROM t",
                                  u"SELECT a",
                                  u"SELECT a FROM",
                                  u"SELECT a FROM t WHERE",
                                  u"SELECT a FROM t WHERE b",
                                  u"SELECT a FROM t WHERE b=",
                                  u"SELECT a FROM t WHERE b=c",
                                  u"SELECT a FROM t WHERE b>4",
                                  u"SELECT a FROM t WHERE b=4 AND c=5",
                                  u"SELECT a FROM t WHERE (b=4",
                                  u"SELECT a FROM t WHERE b=4)",
                                  u"SELECT a FROM t;;",
                                  u"SELECT a FROM t ORDER BY a",
                                  u"SELECT a FROM t, u",
                                  u"SELECT * FROM t",
                                  u"SELECT a, FROM t",
                                  u"SELECT u.a FROM t",
                                  u"SELECT a FROM t WHERE u.b=4",
                                  u"SELECT a FROM t WHERE b='x",
                                  u"SELECT a FROM t WHERE b=1.2.3",
                                  u"SELECT [a FROM t",
                                  u"SELECT a FROM t WHERE b=-",
                                  u"SELECT 1a FROM t",
                                  u"DELETE FROM t",
                                  u"SELECT a FROM t WHERE b=4 x",
                                  u"SELECT a FROM t WHERE b='x'y"}) {
        EXPECT_EQ(ErrorNumberOf([&] { ParseQuery(statement); }), kSyntaxError)
            << testing::PrintToString(std::u16string_view(statement));
    }
}

TEST(ParseQuery, NullMatchesNothing)
{
    EXPECT_FALSE(Matches(Null{}, 0.0));
    EXPECT_FALSE(Matches(Null{}, Text()));
    EXPECT_TRUE(Matches(4, 4.0));
    EXPECT_TRUE(Matches(Currency{25000}, 2.5));
    EXPECT_FALSE(Matches(Text(u"4"), 4.0));
    EXPECT_TRUE(Matches(Text(u"ROSSI"), Text(u"Rossi ")));
}

class QueryTest : public testing::TestWithParam<const char*>
{
protected:
    QueryTest()
    {
        storage_.Put("nimbo.mdb", ReadFile(Sample(GetParam())));
        database_ = Database::Open("nimbo.mdb", OpenMode::ReadWrite, storage_);
        rows_ = database_->OpenQuery(kRings);
    }

    PowerCutStorage storage_;
    std::unique_ptr<Database> database_;
    std::unique_ptr<Recordset> rows_;
};

TEST_P(QueryTest, GivesTheMatchingRowsInTheOrderOfTheFile)
{
    EXPECT_EQ(rows_->RecordCount(), 4u);
    const auto table = database_->OpenTable(u"Suonerie");
    for (; !table->AtEof(); table->MoveNext()) {
        if (table->Field(u"Terminale") != Value(4)) {
            continue;
        }
        ASSERT_FALSE(rows_->AtEof());
        for (const auto* column : {u"Locazione", u"Ora", u"Giorni", u"Numero_Relè", u"Minuti"}) {
            EXPECT_EQ(rows_->Field(column), table->Field(column));
        }
        rows_->MoveNext();
    }
    EXPECT_TRUE(rows_->AtEof());
    rows_->MoveLast();
    rows_->MoveFirst();
    EXPECT_FALSE(rows_->AtEof());
}

TEST_P(QueryTest, RowsCanBeEditedAddedAndDeleted)
{
    rows_->Edit();
    rows_->SetField(u"Minuti", 59);
    rows_->Update();
    EXPECT_EQ(rows_->Field(u"Minuti"), Value(59));
    rows_->MoveNext();
    rows_->Delete();
    EXPECT_EQ(rows_->RecordCount(), 3u);
    rows_->AddNew();
    rows_->SetField(u"Terminale", 4);
    rows_->SetField(u"Minuti", 7);
    rows_->Update();
    rows_->AddNew();
    rows_->SetField(u"Terminale", 5);
    rows_->Update();
    EXPECT_EQ(rows_->RecordCount(), 4u) << "the other row does not match";
    int sevens = 0;
    for (rows_->MoveFirst(); !rows_->AtEof(); rows_->MoveNext()) {
        sevens += rows_->Field(u"Minuti") == Value(7) ? 1 : 0;
    }
    EXPECT_EQ(sevens, 1);
    EXPECT_EQ(database_->OpenTable(u"Suonerie")->RecordCount(), 11u);
    EXPECT_EQ(CheckIntegrity("nimbo.mdb", storage_), std::vector<std::string>{});
}

TEST_P(QueryTest, UnknownNamesAndIndexesAreRefused)
{
    EXPECT_EQ(ErrorNumberOf([&] { database_->OpenQuery(u"SELECT a FROM Manca"); }), kTableNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { database_->OpenQuery(u"SELECT Manca FROM Suonerie"); }),
              kColumnNotFound);
    EXPECT_EQ(
        ErrorNumberOf([&] { database_->OpenQuery(u"SELECT Ora FROM Suonerie WHERE Manca=1"); }),
        kColumnNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { rows_->SetIndex(u""); }), kNotSupported);
    const auto hours = database_->OpenQuery(u"SELECT Ora FROM Suonerie");
    EXPECT_EQ(hours->RecordCount(), 10u);
    EXPECT_EQ(ErrorNumberOf([&] { hours->Field(u"Minuti"); }), kColumnNotFound);
}

INSTANTIATE_TEST_SUITE_P(Versions, QueryTest,
                         testing::Values("nimbo-full-97.mdb", "nimbo-full-2000.mdb"),
                         [](const auto& sample) {
                             return std::string(sample.param) == "nimbo-full-97.mdb" ? "Jet3"
                                                                                     : "Jet4";
                         });

}  // namespace

}  // namespace jet::test
