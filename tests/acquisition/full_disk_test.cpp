#include "tests/acquisition/acquisition_fixture.h"
#include "tests/support/file_size_limit.h"

namespace orlo
{
namespace
{

using testing::LimitFileSize;

/// A disk that is full from a certain file size on.
class FullDisk : public testing::AcquisitionTest
{
protected:
    void TearDown() override { LimitFileSize(RLIM_INFINITY); }
};

TEST_F(FullDisk, AnswerThatCannotBeStoredIsToldCutBackAndAskedForAgain)
{
    Connect("Strale", "timbrature=25");
    // The room runs out while the second answer, for which it was there, is on its way.
    const auto carry = pc.com1.answer_to;
    pc.com1.answer_to = [&](std::string_view request) {
        std::vector<testing::Arrival> arrivals = carry(request);
        if (Transfers().size() == 2) LimitFileSize(10 * 34 + 100);
        return arrivals;
    };
    const AcquisitionOutcome outcome = Acquire();
    LimitFileSize(RLIM_INFINITY);
    EXPECT_FALSE(outcome.done);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].text.contains(QStringLiteral("TIMBRAT.TXT")));
    EXPECT_EQ(PunchLines().size(), 10) << "the second answer is not there in part";
    EXPECT_EQ(Punches().Acquired(), 10U) << "nor is it acknowledged";

    commands.clear();
    pc.com1.answer_to = carry;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Transfers().first(), QStringLiteral("33NO"));
    EXPECT_EQ(PunchLines().size(), 25);
}

TEST_F(FullDisk, NothingIsAskedForBeyondTheLengthThatAFileMayHave)
{
    Connect("Strale", "timbrature=25");
    LimitFileSize(10 * 34 + 100);
    EXPECT_FALSE(Acquire().done);
    EXPECT_TRUE(Transfers().isEmpty());
}

TEST_F(FullDisk, AnotherTerminalIsNotAskedAgainForIt)
{
    state.UnstoredTerminals.insert(7);
    Connect("Strale", "timbrature=5");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Transfers().first(), QStringLiteral("33OK"));
    EXPECT_TRUE(state.UnstoredTerminals.contains(7));
}

}  // namespace
}  // namespace orlo
