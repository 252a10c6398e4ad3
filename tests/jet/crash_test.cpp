#include "jet/database.h"
#include "jet/integrity_check.h"
#include "tests/jet/power_cut_storage.h"

#include <gtest/gtest.h>

#include <ostream>

// Whatever happens while a change is written, the file is found as it was before or as it is after
// it, whole (invariants 1 to 6 of journal.h).

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";

struct Change {
    const char* name;
    const char* sample;
    void (*make)(Database&);
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.name << " in " << change.sample;
}

void EditInPlace(Database& database)
{
    const auto rows = database.OpenTable(u"TERMINALI");
    rows->Edit();
    rows->SetField(u"Velocita", 9600);
    rows->Update();
}

void MoveRows(Database& database)
{
    const auto rows = database.OpenTable(u"TERMINALI");
    database.BeginTrans();
    for (int edits = 0; !rows->AtEof(); rows->MoveNext(), ++edits) {
        rows->Edit();
        rows->SetField(u"Descrizione", Text(50, static_cast<char16_t>(u'a' + edits)));
        rows->SetField(u"NomeCard", Text(20, u'€'));
        rows->Update();
    }
    database.CommitTrans();
}

void ChangeKeys(Database& database)
{
    const auto rows = database.OpenTable(u"TERMINALI");
    database.BeginTrans();
    rows->Edit();
    rows->SetField(u"Terminale", 32);
    rows->Update();
    rows->MoveLast();
    rows->Delete();
    database.CommitTrans();
}

void AddMany(Database& database)
{
    const auto rows = database.OpenTable(u"Suonerie");
    database.BeginTrans();
    for (int minute = 0; minute < 200; ++minute) {
        rows->AddNew();
        rows->SetField(u"Terminale", minute % 32);
        rows->SetField(u"Minuti", minute);
        rows->Update();
    }
    database.CommitTrans();
}

void AppendColumns(Database& database)
{
    database.BeginTrans();
    for (char16_t letter = u'a'; letter < u'i'; ++letter) {
        database.AppendColumn(u"TERMINALI", {std::u16string(60, letter), ColumnType::Text, 20});
    }
    database.CommitTrans();
}

void CreateTableWithIndexes(Database& database)
{
    database.CreateTable({u"Nuova",
                          {{u"Numero", ColumnType::Long}, {u"Nota", ColumnType::Memo}},
                          {{u"PrimaryKey", {{u"Numero"}}, true}}});
}

void DeleteLongValues(Database& database)
{
    const auto rows = database.OpenTable(u"Dipendenti");
    database.BeginTrans();
    for (int i = 0; i < 30; ++i) {
        rows->Delete();
        rows->MoveNext();
    }
    database.CommitTrans();
}

class CrashTest : public testing::TestWithParam<Change>
{
protected:
    CrashTest() : before_(ReadFile(Sample(GetParam().sample)))
    {
        Start();
        Make();
        after_ = storage_.Content(kName);
    }

    void Start()
    {
        storage_ = {};
        storage_.Put(kName, before_);
    }

    void Make()
    {
        const auto database = Database::Open(kName, OpenMode::ReadWrite, storage_);
        GetParam().make(*database);
    }

    /// What the next one to open the file finds.
    FileBytes Reopened()
    {
        Database::Open(kName, OpenMode::ReadOnly, storage_);
        return storage_.Content(kName);
    }

    FileBytes before_;
    FileBytes after_;
    PowerCutStorage storage_;
};

TEST_P(CrashTest, WithoutTroubleTheFileIsSound)
{
    EXPECT_NE(before_, after_);
    EXPECT_EQ(CheckIntegrity(kName, storage_), std::vector<std::string>{});
}

TEST_P(CrashTest, PowerCutAtEveryStepLeavesBeforeOrAfter)
{
    int before = 0;
    int after = 0;
    bool finished = false;
    for (int step = 1; !finished; ++step) {
        for (unsigned seed = 0; seed < 3; ++seed) {
            SCOPED_TRACE("step " + std::to_string(step) + ", seed " + std::to_string(seed));
            std::mt19937 random(seed);
            Start();
            storage_.TroubleAt(step, PowerCutStorage::Trouble::PowerCut);
            bool acknowledged = false;
            try {
                const auto database = Database::Open(kName, OpenMode::ReadWrite, storage_);
                GetParam().make(*database);
                acknowledged = true;
            } catch (const PowerCut&) {
            }
            finished = storage_.Steps() < step;
            storage_.Restart(random);
            const FileBytes found = Reopened();
            ASSERT_TRUE(found == after_ || (!acknowledged && found == before_));
            ++(found == after_ ? after : before);
        }
    }
    EXPECT_GT(before, 10);
    EXPECT_GT(after, 3);
}

TEST_P(CrashTest, DiskErrorAtEveryStepLeavesBeforeOrAfter)
{
    using Trouble = PowerCutStorage::Trouble;
    for (const Trouble trouble : {Trouble::ErrorOnce, Trouble::ErrorForever}) {
        bool finished = false;
        for (int step = 1; !finished; ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Start();
            storage_.TroubleAt(step, trouble);
            const int error = ErrorNumberOf([&] { Make(); });
            finished = storage_.Steps() < step;
            storage_.TroubleAt(0, trouble);
            const FileBytes found = Reopened();
            ASSERT_TRUE(found == after_ || (error == kDiskError && found == before_));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Changes, CrashTest,
    testing::Values(Change{"EditInPlace97", "nimbo-full-97.mdb", EditInPlace},
                    Change{"EditInPlace2000", "nimbo-full-2000.mdb", EditInPlace},
                    Change{"MoveRows97", "nimbo-full-97.mdb", MoveRows},
                    Change{"MoveRows2003", "nimbo-32-2003.mdb", MoveRows},
                    Change{"ChangeKeys97", "nimbo-full-97.mdb", ChangeKeys},
                    Change{"ChangeKeys2000", "nimbo-full-2000.mdb", ChangeKeys},
                    Change{"AddMany97", "nimbo-full-97.mdb", AddMany},
                    Change{"AddMany2000", "nimbo-full-2000.mdb", AddMany},
                    Change{"AppendColumns97", "nimbo-base-97.mdb", AppendColumns},
                    Change{"AppendColumns2000", "nimbo-base-2000.mdb", AppendColumns},
                    Change{"CreateTable97", "nimbo-base-97.mdb", CreateTableWithIndexes},
                    Change{"CreateTable2000", "nimbo-base-2000.mdb", CreateTableWithIndexes},
                    Change{"DeleteLongValues", "nimbo-foreign-2000.mdb", DeleteLongValues}),
    [](const auto& change) { return std::string(change.param.name); });

// The name appears with the whole file behind it, or not at all.
TEST(CreateDatabaseCrash, PowerCutAtEveryStepLeavesNothingOrAWholeFile)
{
    for (const Version version : {Version::Jet3, Version::Jet4}) {
        int whole = 0;
        bool finished = false;
        for (int step = 1; !finished; ++step) {
            for (unsigned seed = 0; seed < 3; ++seed) {
                SCOPED_TRACE("step " + std::to_string(step) + ", seed " + std::to_string(seed));
                std::mt19937 random(seed);
                PowerCutStorage storage;
                storage.TroubleAt(step, PowerCutStorage::Trouble::PowerCut);
                bool acknowledged = false;
                try {
                    Database::Create(kName, version, storage);
                    acknowledged = true;
                } catch (const PowerCut&) {
                }
                finished = storage.Steps() < step;
                storage.Restart(random);
                ASSERT_TRUE(storage.Exists(kName) || !acknowledged);
                if (storage.Exists(kName)) {
                    ++whole;
                    ASSERT_EQ(CheckIntegrity(kName, storage), std::vector<std::string>{});
                } else {
                    Database::Create(kName, version, storage);
                }
            }
        }
        EXPECT_GT(whole, 3);
    }
}

}  // namespace

}  // namespace jet::test
