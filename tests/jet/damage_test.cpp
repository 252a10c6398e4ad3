#include "tests/jet/sick_sample.h"

#include <gtest/gtest.h>

#include <algorithm>

// Damaged files end in a result or in a jet::Error: never in another exception, a crash, a hang or
// an allocation out of proportion to the file.

namespace jet::test
{

namespace
{

/// What reading may end in, whatever has happened to the file.
void ExpectKnownOutcomes(const Outcomes& outcomes)
{
    for (const auto& [number, count] : outcomes) {
        // A damaged name, type or sort order may make a key, a column or a table unknown.
        const std::vector<int> known{0,
                                     kDamagedFile,
                                     kUnrecognisedFormat,
                                     kEncodedFile,
                                     kInvalidArgument,
                                     kNoCurrentRecord,
                                     kTableNotFound,
                                     kColumnNotFound,
                                     kIndexNotFound};
        EXPECT_TRUE(std::ranges::count(known, number) == 1) << number << ", times " << count;
    }
}

TEST(DamagedFile, CutAtEveryPageAndManyOddLengths)
{
    for (const char* sample : {"nimbo-full-97.mdb", "nimbo-full-2000.mdb"}) {
        SCOPED_TRACE(sample);
        FileBytes file = ReadFile(Sample(sample));
        Outcomes outcomes;
        std::size_t length = file.size();
        while (length > 0) {
            // A step of 509 meets page boundaries of neither size; 2048 ends every page of both.
            const std::size_t odd = (length - 1) / 509 * 509;
            const std::size_t page = (length - 1) / 2048 * 2048;
            length = std::max(odd, page);
            file.resize(length);
            Outcomes of_this;
            ReadAll(file, of_this);
            const auto errors = static_cast<std::size_t>(
                std::ranges::count_if(of_this, [](const auto& entry) { return entry.first != 0; }));
            EXPECT_GT(errors, 0u) << "length " << length;
            outcomes.merge(of_this);
        }
        ExpectKnownOutcomes(outcomes);
    }
}

class DamagedFileTest : public testing::TestWithParam<SickSample>
{
};

TEST_P(DamagedFileTest, AnyBytesEndInAResultOrAnError)
{
    constexpr unsigned kSeed = 20240229;
    const FileBytes whole = ReadFile(Sample(GetParam().file));
    Outcomes outcomes;
    ForgetLargestAllocation();
    const double longest = ForDamagedCopies(
        whole, GetParam().copies, kSeed,
        [&](const FileBytes& damaged, std::mt19937&) { ReadAll(damaged, outcomes); });
    ExpectKnownOutcomes(outcomes);
    EXPECT_GT(outcomes[0], 1000u);
    EXPECT_GT(outcomes[kDamagedFile], 100u);
    ExpectBounded(whole, longest);
}

TEST_P(DamagedFileTest, WithoutDamageThereIsNoError)
{
    Outcomes outcomes;
    ReadAll(ReadFile(Sample(GetParam().file)), outcomes);
    EXPECT_EQ(outcomes.size(), 1u);
    EXPECT_GT(outcomes[0], 30u);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedFileTest,
                         testing::Values(SickSample{"Base97", "nimbo-base-97.mdb", 5000},
                                         SickSample{"Full97", "nimbo-full-97.mdb", 5000},
                                         SickSample{"Base2000", "nimbo-base-2000.mdb", 5000},
                                         SickSample{"Full2000", "nimbo-full-2000.mdb", 5000},
                                         // Long values, moved rows, trees of several levels.
                                         SickSample{"Foreign2000", "nimbo-foreign-2000.mdb", 500}),
                         [](const auto& sick) { return std::string(sick.param.name); });

}  // namespace

}  // namespace jet::test
