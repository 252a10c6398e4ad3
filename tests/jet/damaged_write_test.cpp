#include "tests/jet/damaged_file.h"
#include "tests/jet/largest_allocation.h"
#include "tests/jet/processor_time.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

// Changing a damaged file ends in a result or in a jet::Error, never in anything else; and an error
// leaves the file as it was (ChangeAll throws when it does not).

namespace jet::test
{

namespace
{

struct Sick {
    const char* name;
    const char* sample;
    int copies;
};

void PrintTo(const Sick& sick, std::ostream* out)
{
    *out << sick.sample;
}

class DamagedWrite : public testing::TestWithParam<Sick>
{
};

TEST_P(DamagedWrite, AnyBytesEndInAResultOrAnErrorThatChangesNothing)
{
    constexpr unsigned kSeed = 20260102;
    const auto copies = static_cast<std::size_t>(GetParam().copies);
    const FileBytes whole = ReadFile(Sample(GetParam().sample));
    std::mt19937 random(kSeed);
    Outcomes outcomes;
    double longest = 0;
    ForgetLargestAllocation();
    for (std::size_t copy = 0; copy < copies; ++copy) {
        SCOPED_TRACE("copy " + std::to_string(copy) + " of seed " + std::to_string(kSeed));
        const double begin = ProcessorSeconds();
        ChangeAll(DamagedCopy(whole, kMostPlaces, random), random, outcomes);
        longest = std::max(longest, ProcessorSeconds() - begin);
    }
    EXPECT_GT(outcomes[0], 2 * copies);
    EXPECT_GT(outcomes[kDamagedFile], copies / 20);
    EXPECT_EQ(outcomes.count(kDiskError), 0u);
    EXPECT_LE(LargestAllocation(), 3 * whole.size());
    EXPECT_LT(longest, kPatienceSeconds);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedWrite,
                         testing::Values(Sick{"Base97", "nimbo-base-97.mdb", 5000},
                                         Sick{"Full97", "nimbo-full-97.mdb", 5000},
                                         Sick{"Base2000", "nimbo-base-2000.mdb", 5000},
                                         Sick{"Full2000", "nimbo-full-2000.mdb", 5000},
                                         // Long values, moved rows, trees of several levels.
                                         Sick{"Foreign2000", "nimbo-foreign-2000.mdb", 300}),
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
