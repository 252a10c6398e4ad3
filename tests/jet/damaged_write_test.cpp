#include "tests/jet/sick_sample.h"

#include <gtest/gtest.h>

#include <algorithm>

// Changing a damaged file ends in a result or in a jet::Error, never in anything else; and an error
// leaves the file as it was (ChangeAll throws when it does not).

namespace jet::test
{

namespace
{

class DamagedWrite : public testing::TestWithParam<SickSample>
{
};

TEST_P(DamagedWrite, AnyBytesEndInAResultOrAnErrorThatChangesNothing)
{
    constexpr unsigned kSeed = 20260102;
    const auto copies = static_cast<std::size_t>(GetParam().copies);
    const FileBytes whole = ReadFile(Sample(GetParam().file));
    Outcomes outcomes;
    ForgetLargestAllocation();
    const double longest = ForDamagedCopies(whole, GetParam().copies, kSeed,
                                            [&](const FileBytes& damaged, std::mt19937& random) {
                                                ChangeAll(damaged, random, outcomes);
                                            });
    EXPECT_GT(outcomes[0], 2 * copies);
    EXPECT_GT(outcomes[kDamagedFile], copies / 20);
    EXPECT_EQ(outcomes.count(kDiskError), 0u);
    ExpectBounded(whole, longest);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedWrite,
                         testing::Values(SickSample{"Base97", "nimbo-base-97.mdb", 5000},
                                         SickSample{"Full97", "nimbo-full-97.mdb", 5000},
                                         SickSample{"Base2000", "nimbo-base-2000.mdb", 5000},
                                         SickSample{"Full2000", "nimbo-full-2000.mdb", 5000},
                                         // Long values, moved rows, trees of several levels.
                                         SickSample{"Foreign2000", "nimbo-foreign-2000.mdb", 300}),
                         [](const auto& sick) { return std::string(sick.param.name); });

constexpr const char* kName = "nimbo.mdb";

TEST(OpenForWriting, UsedPageThatCountsAsFreeIsRefused)
{
    MemoryStorage storage;
    FileBytes file = ReadFile(Sample("nimbo-full-97.mdb"));
    // The map of free pages is row 0 of page 1, its bitmap begins 5 bytes behind its start.
    const std::size_t map = 2048 + static_cast<std::size_t>(file[2048 + 10] | file[2048 + 11] << 8);
    file[map + 5] |= 0x20;
    storage.Put(kName, file);
    EXPECT_EQ(ErrorNumberOf([&] { Database::Open(kName, OpenMode::ReadWrite, storage); }),
              kDamagedFile);
    EXPECT_EQ(ErrorNumberOf([&] { Database::Open(kName, OpenMode::ReadOnly, storage); }), 0);
    EXPECT_EQ(storage.At(kName), file);
}

TEST(CreateTable, UserOfAWrongTypeInThePermissionsIsRefused)
{
    MemoryStorage storage;
    FileBytes file = ReadFile(Sample("nimbo-full-97.mdb"));
    // The type of the second column, "SID", in the definition on page 3.
    std::uint8_t& type = file[3 * 2048 + 69];
    ASSERT_EQ(type, static_cast<std::uint8_t>(ColumnType::Binary));
    type = static_cast<std::uint8_t>(ColumnType::Text);
    storage.Put(kName, file);
    const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
    EXPECT_EQ(ErrorNumberOf([&] {
                  database->CreateTable({u"Nuova", {{u"Uno", ColumnType::Long}}, {}});
              }),
              kDamagedFile);
    EXPECT_EQ(storage.At(kName), file);
}

TEST(TableDefinition, MoreVariableFieldsThanFieldsEverIsDamage)
{
    MemoryStorage storage;
    FileBytes file = ReadFile(Sample("nimbo-full-97.mdb"));
    // A definition of a user's table begins on page 6.
    ASSERT_EQ(file[6 * 2048 + 20], 0x4E);
    Put16(file, 6 * 2048 + 23, 0xFFFF);
    storage.Put(kName, file);
    const auto database = Database::Open(kName, OpenMode::ReadOnly, storage);
    EXPECT_EQ(ErrorNumberOf([&] { database->TableDefs(); }), kDamagedFile);
}

}  // namespace

}  // namespace jet::test
