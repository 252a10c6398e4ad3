#include "tests/jet/power_cut_storage.h"
#include "tests/jet/table_model.h"

#include <gtest/gtest.h>

#include <map>

// Changing a damaged file ends in a result or in a jet::Error, never in anything else; and an error
// leaves the file as it was.

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";

using Outcomes = std::map<int, int>;

void ChangeSomething(Database& database, const TableInfo& table, std::mt19937& random)
{
    const auto rows = database.OpenTable(table.name);
    switch (random() % 5) {
        case 0:
            rows->MoveLast();
            rows->Delete();
            return;
        case 1:
            database.AppendColumn(table.name, {u"Nuova", ColumnType::Memo});
            return;
        case 2:
            database.CreateTable(
                {u"Nuova", {{u"Uno", ColumnType::Long}}, {{u"P", {{u"Uno"}}, true}}});
            return;
        case 3:
            rows->AddNew();
            break;
        default:
            rows->Edit();
    }
    for (const ColumnInfo& column : table.columns) {
        if (column.type != ColumnType::Memo && column.type != ColumnType::Ole &&
            !column.name.starts_with(u"Id")) {
            rows->SetField(column.name, RandomValue(column, /*unicode=*/false, random));
        }
    }
    rows->Update();
}

void ChangeAllTables(const FileBytes& file, std::mt19937& random, Outcomes& outcomes)
{
    PowerCutStorage storage;
    storage.Put(kName, file);
    ++outcomes[ErrorNumberOf([&] {
        const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
        for (const TableInfo& table : database->TableDefs()) {
            const FileBytes before = storage.Content(kName);
            const int error = ErrorNumberOf([&] { ChangeSomething(*database, table, random); });
            ++outcomes[error];
            if (error != 0) {
                ASSERT_TRUE(storage.Content(kName) == before) << error;
            }
        }
    })];
}

class DamagedWrite : public testing::TestWithParam<const char*>
{
};

TEST_P(DamagedWrite, AnyBytesEndInAResultOrAnErrorThatChangesNothing)
{
    constexpr unsigned kSeed = 20260102;
    constexpr int kCopies = 700;
    const FileBytes whole = ReadFile(Sample(GetParam()));
    std::mt19937 random(kSeed);
    Outcomes outcomes;
    for (int copy = 0; copy < kCopies; ++copy) {
        SCOPED_TRACE("copy " + std::to_string(copy) + " of seed " + std::to_string(kSeed));
        FileBytes damaged = whole;
        for (int i = 0; i < 1 + copy % 4; ++i) {
            std::size_t place = random() % whole.size();
            if (random() % 2 == 0) {
                place = place / 2048 * 2048 + random() % 96;
            }
            const auto kind = random() % 3;
            damaged[place] = kind == 0   ? std::uint8_t{0xFF}
                             : kind == 1 ? static_cast<std::uint8_t>(damaged[place] + 1)
                                         : static_cast<std::uint8_t>(random());
        }
        ChangeAllTables(damaged, random, outcomes);
    }
    EXPECT_GT(outcomes[0], kCopies);
    EXPECT_GT(outcomes[kDamagedFile], kCopies / 20);
    EXPECT_EQ(outcomes.count(kDiskError), 0u);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedWrite,
                         testing::Values("nimbo-full-97.mdb", "nimbo-full-2000.mdb"),
                         [](const auto& sample) {
                             return std::string(sample.param) == "nimbo-full-97.mdb" ? "Jet3"
                                                                                     : "Jet4";
                         });

TEST(OpenForWriting, UsedPageThatCountsAsFreeIsRefused)
{
    PowerCutStorage storage;
    FileBytes file = ReadFile(Sample("nimbo-full-97.mdb"));
    // The map of free pages is row 0 of page 1, its bitmap begins 5 bytes behind its start.
    const std::size_t map = 2048 + static_cast<std::size_t>(file[2048 + 10] | file[2048 + 11] << 8);
    file[map + 5] |= 0x20;
    storage.Put(kName, file);
    EXPECT_EQ(ErrorNumberOf([&] { Database::Open(kName, OpenMode::ReadWrite, storage); }),
              kDamagedFile);
    EXPECT_EQ(ErrorNumberOf([&] { Database::Open(kName, OpenMode::ReadOnly, storage); }), 0);
    EXPECT_EQ(storage.Content(kName), file);
}

}  // namespace

}  // namespace jet::test
