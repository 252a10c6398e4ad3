#include "tests/jet/damaged_file.h"
#include "tests/jet/largest_allocation.h"
#include "tests/jet/processor_time.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

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

struct Sick {
    const char* name;
    const char* sample;
    int copies;
};

void PrintTo(const Sick& sick, std::ostream* out)
{
    *out << sick.sample;
}

class DamagedFileTest : public testing::TestWithParam<Sick>
{
};

TEST_P(DamagedFileTest, AnyBytesEndInAResultOrAnError)
{
    constexpr unsigned kSeed = 20240229;
    const FileBytes whole = ReadFile(Sample(GetParam().sample));
    std::mt19937 random(kSeed);
    Outcomes outcomes;
    double longest = 0;
    ForgetLargestAllocation();
    for (int copy = 0; copy < GetParam().copies; ++copy) {
        SCOPED_TRACE("copy " + std::to_string(copy) + " of seed " + std::to_string(kSeed));
        const double begin = ProcessorSeconds();
        ReadAll(DamagedCopy(whole, kMostPlaces, random), outcomes);
        longest = std::max(longest, ProcessorSeconds() - begin);
    }
    ExpectKnownOutcomes(outcomes);
    EXPECT_GT(outcomes[0], 1000u);
    EXPECT_GT(outcomes[kDamagedFile], 100u);
    EXPECT_LE(LargestAllocation(), 3 * whole.size());
    EXPECT_LT(longest, kPatienceSeconds);

    Outcomes undamaged;
    ReadAll(whole, undamaged);
    EXPECT_EQ(undamaged.size(), 1u) << "without damage there is no error";
    EXPECT_GT(undamaged[0], 30u);
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedFileTest,
                         testing::Values(Sick{"Base97", "nimbo-base-97.mdb", 5000},
                                         Sick{"Full97", "nimbo-full-97.mdb", 5000},
                                         Sick{"Base2000", "nimbo-base-2000.mdb", 5000},
                                         Sick{"Full2000", "nimbo-full-2000.mdb", 5000},
                                         // Long values, moved rows, trees of several levels.
                                         Sick{"Foreign2000", "nimbo-foreign-2000.mdb", 500}),
                         [](const auto& sick) { return std::string(sick.param.name); });

}  // namespace

}  // namespace jet::test
