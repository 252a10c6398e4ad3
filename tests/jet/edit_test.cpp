#include "tests/jet/office.h"

namespace jet::test
{

namespace
{

class EditTest : public testing::TestWithParam<const char*>
{
protected:
    Office office_{GetParam()};
};

TEST_P(EditTest, EditOfAFixedFieldChangesNothingButItsBytes)
{
    const FileBytes before = office_.Bytes();
    const auto rows = office_.Terminal(3);
    rows->Edit();
    rows->SetField(u"Velocita", 19200);
    rows->Update();
    EXPECT_EQ(rows->Field(u"Velocita"), Value(19200));
    const FileBytes after = office_.Bytes();
    ASSERT_EQ(before.size(), after.size());
    std::size_t changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        changed += before[i] != after[i] ? 1u : 0u;
    }
    EXPECT_LE(changed, 4u);
    EXPECT_GE(changed, 1u);
}

TEST_P(EditTest, ChangeIsSeenByAFreshReader)
{
    const auto rows = office_.Terminal(2);
    rows->Edit();
    rows->SetField(u"Descrizione", Text(u"Portineria à è €"));
    rows->SetField(u"Bidirezionale", true);
    rows->SetField(u"Ritardo", 1.25f);
    rows->SetField(u"Modem", Null{});
    rows->Update();
    const auto stored = office_.Stored(u"TERMINALI");
    const TableInfo table = Describe(office_.Writable(), u"TERMINALI");
    EXPECT_EQ(SortedTexts(stored), SortedTexts(AllRows(office_.Writable(), table)));
    EXPECT_EQ(rows->Field(u"Descrizione"), Value(Text(u"Portineria à è €")));
    EXPECT_EQ(rows->Field(u"Bidirezionale"), Value(true));
    EXPECT_EQ(rows->Field(u"Ritardo"), Value(1.25f));
    EXPECT_EQ(rows->Field(u"Modem"), Value(Null{}));
    office_.ExpectSound();
}

TEST_P(EditTest, RowsThatOutgrowTheirPageKeepHomeAndIndexEntry)
{
    for (int pass = 0; pass < 3; ++pass) {
        const auto rows = office_.Terminals();
        std::int32_t number = 100;
        for (; !rows->AtEof(); rows->MoveNext()) {
            rows->Edit();
            rows->SetField(u"Descrizione", Text(static_cast<std::size_t>(15 + 16 * pass), u'ò'));
            rows->Update();
        }
        for (int i = 0; i < 40; ++i) {
            rows->AddNew();
            rows->SetField(u"Terminale", number + 100 * pass);
            ++number;
            rows->Update();
        }
        office_.ExpectSound();
    }
    EXPECT_EQ(office_.Terminal(3)->Field(u"Descrizione"), Value(Text(47, u'ò')));
}

TEST_P(EditTest, CursorStaysOnTheRowEditedThoughItsKeyHasChanged)
{
    const auto rows = office_.Terminal(3);
    rows->Edit();
    rows->SetField(u"Terminale", 30);
    rows->Update();
    EXPECT_EQ(rows->Field(u"Terminale"), Value(30));
    rows->MovePrevious();
    EXPECT_EQ(rows->Field(u"Terminale"), Value(8));
    rows->MoveNext();
    rows->MoveNext();
    EXPECT_TRUE(rows->AtEof());
    office_.ExpectSound();
}

TEST_P(EditTest, CursorStaysWhereItWasWhenARowIsAdded)
{
    const auto rows = office_.Terminal(3);
    rows->AddNew();
    rows->SetField(u"Terminale", 31);
    EXPECT_EQ(rows->Field(u"Terminale"), Value(31)) << "the row being made";
    rows->Update();
    EXPECT_EQ(rows->Field(u"Terminale"), Value(3));
    rows->MoveLast();
    EXPECT_EQ(rows->Field(u"Terminale"), Value(31));
    EXPECT_EQ(rows->Field(u"Bidirezionale"), Value(false));
    EXPECT_EQ(rows->RecordCount(), 9u);
}

TEST_P(EditTest, NextRowFollowsADeletedOneInEveryOrder)
{
    for (const auto* index : {u"", u"TERMINALE"}) {
        const auto rows = office_.Terminals();
        rows->SetIndex(index);
        rows->MoveNext();
        rows->MoveNext();
        const Value third = rows->Field(u"Terminale");
        rows->MovePrevious();
        rows->Delete();
        EXPECT_EQ(ErrorNumberOf([&] { rows->Field(u"Terminale"); }), kNoCurrentRecord);
        EXPECT_FALSE(rows->AtEof());
        rows->MoveNext();
        EXPECT_EQ(rows->Field(u"Terminale"), third);
    }
    EXPECT_EQ(office_.Terminals()->RecordCount(), 6u);
    office_.ExpectSound();
}

TEST_P(EditTest, DeletingAllLeavesAnEmptyTableThatCanBeFilledAgain)
{
    const auto rows = office_.Terminals();
    for (; !rows->AtEof(); rows->MoveNext()) {
        rows->Delete();
    }
    rows->MoveFirst();
    EXPECT_TRUE(rows->AtEof() && rows->AtBof());
    office_.ExpectSound();
    rows->AddNew();
    rows->SetField(u"Terminale", 1);
    rows->Update();
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(u"Terminale"), Value(1));
    office_.ExpectSound();
}

TEST_P(EditTest, OtherCursorsFollow)
{
    const auto first = office_.Terminal(3);
    const auto second = office_.Terminal(3);
    first->Edit();
    first->SetField(u"Porta", 4);
    first->Update();
    EXPECT_EQ(second->Field(u"Porta"), Value(4));
    second->Edit();
    first->Edit();
    first->SetField(u"Porta", 2);
    first->Update();
    second->SetField(u"LenCard", 9);
    second->Update();
    EXPECT_EQ(first->Field(u"Porta"), Value(2)) << "not set by the second cursor";
    EXPECT_EQ(first->Field(u"LenCard"), Value(9));
    first->Delete();
    EXPECT_EQ(ErrorNumberOf([&] { second->Field(u"Porta"); }), kNoCurrentRecord);
    second->MoveNext();
    EXPECT_EQ(second->Field(u"Terminale"), Value(4));
}

struct Refusal {
    const char16_t* column;
    Value value;
    int error;
};

TEST_P(EditTest, ValueThatTheColumnCannotHoldIsRefusedByName)
{
    const Refusal kRefusals[]{

        {u"Terminale", 32768, kFieldOverflow},  {u"Terminale", -32769, kFieldOverflow},
        {u"Terminale", Text(u"3"), kWrongType}, {u"Terminale", true, kWrongType},
        {u"Bidirezionale", 1, kWrongType},      {u"Bidirezionale", Null{}, kWrongType},
        {u"Ritardo", 1e300, kFieldOverflow},    {u"Ritardo", Text(u"x"), kWrongType},
        {u"Descrizione", 5, kWrongType},        {u"Descrizione", Text(300, u'x'), kFieldTooSmall},
        {u"Manca", 5, kColumnNotFound},
    };
    const auto rows = office_.Terminal(3);
    rows->Edit();
    for (const Refusal& refusal : kRefusals) {
        try {
            rows->SetField(refusal.column, refusal.value);
            ADD_FAILURE() << ValueText(refusal.value);
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), refusal.error) << error.what();
            const std::string name(refusal.column,
                                   refusal.column + std::u16string_view(refusal.column).size());
            EXPECT_NE(std::string(error.what()).find("\"" + name + "\""), std::string::npos);
        }
    }
    rows->CancelUpdate();
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kNoEditBegun);
    EXPECT_TRUE(office_.Unchanged());
}

TEST_P(EditTest, DoubleAndMissingKeysAreRefusedAndCanBeCorrected)
{
    const auto rows = office_.Terminal(3);
    rows->Edit();
    rows->SetField(u"Terminale", 4);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kDuplicateKey);
    rows->SetField(u"Terminale", Null{});
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kNullInKey);
    EXPECT_TRUE(office_.Unchanged());
    rows->SetField(u"Terminale", 3);
    rows->SetField(u"Porta", 4);
    rows->Update();
    EXPECT_EQ(rows->Field(u"Porta"), Value(4));
    rows->AddNew();
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kNullInKey);
    rows->SetField(u"Terminale", 3);
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kDuplicateKey);
    office_.ExpectSound();
}

TEST_P(EditTest, MovingGivesAChangeUp)
{
    const auto rows = office_.Terminal(3);
    EXPECT_EQ(ErrorNumberOf([&] { rows->SetField(u"Porta", 4); }), kNoEditBegun);
    rows->Edit();
    rows->SetField(u"Porta", 4);
    rows->MoveNext();
    EXPECT_EQ(ErrorNumberOf([&] { rows->Update(); }), kNoEditBegun);
    EXPECT_TRUE(office_.Unchanged());
}

TEST_P(EditTest, RollbackTakesAllBackInSightOfEveryCursor)
{
    const auto rows = office_.Terminal(3);
    Database& database = office_.Writable();
    database.BeginTrans();
    rows->Edit();
    rows->SetField(u"Terminale", 29);
    rows->Update();
    database.AppendColumn(u"TERMINALI", {u"Nuova", ColumnType::Text, 10});
    rows->AddNew();
    rows->SetField(u"Terminale", 28);
    rows->SetField(u"Nuova", Text(u"x"));
    rows->Update();
    database.CreateTable({u"Altra", {{u"Uno", ColumnType::Long}}, {}});
    EXPECT_EQ(database.OpenTable(u"Altra")->RecordCount(), 0u);
    database.Rollback();
    EXPECT_TRUE(office_.Unchanged());
    EXPECT_EQ(rows->Field(u"Terminale"), Value(3));
    EXPECT_EQ(ErrorNumberOf([&] { rows->Field(u"Nuova"); }), kColumnNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { database.OpenTable(u"Altra"); }), kTableNotFound);
    EXPECT_EQ(ErrorNumberOf([&] { database.Rollback(); }), kTransaction);
    database.BeginTrans();
    EXPECT_EQ(ErrorNumberOf([&] { database.BeginTrans(); }), kTransaction);
}

INSTANTIATE_TEST_SUITE_P(Versions, EditTest,
                         testing::Values("nimbo-full-97.mdb", "nimbo-full-2000.mdb"),
                         [](const auto& sample) {
                             return std::string(sample.param) == "nimbo-full-97.mdb" ? "Jet3"
                                                                                     : "Jet4";
                         });

}  // namespace

}  // namespace jet::test
