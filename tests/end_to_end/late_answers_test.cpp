#include "tests/end_to_end/fault_case.h"

namespace orlo::end_to_end
{
namespace
{

/// Answers say nothing about the request that they belong to. One that comes after its time is
/// taken for the answer to the next request, the answer to that one for the next, and so on. On a
/// line that takes its time none of them can be thrown away before the next request leaves.
class LateAnswer : public FaultTest, public testing::WithParamInterface<const char*>
{
};

TEST_P(LateAnswer, LosesNoPunchAndBringsNoneTwice)
{
    installation.Register({{.terminal = 4}});
    const auto line =
        installation.SimulateStrale(punches, {"--velocita", "19200", "--guasto", GetParam()});
    // A status that fails ends the command as not done; it is then given again. The first time the
    // rest of an answer may still be on the line.
    int runs = 1;
    while (installation.Run({"--acquisisci", "4"}).status != 0 && runs <= 3) ++runs;
    EXPECT_LE(runs, 3);
    EXPECT_EQ(installation.PunchLines(), Answers("1 2 3"));
    EXPECT_EQ(line->State("4.da_acquisire"), "0");
}

INSTANTIATE_TEST_SUITE_P(ToTransfer, LateAnswer,
                         testing::Values("33#1:ritardo=2500", "33#2:ritardo=2500",
                                         "33#3:ritardo=3500", "33#4:ritardo=2500"));
INSTANTIATE_TEST_SUITE_P(ToStatus, LateAnswer,
                         testing::Values("32#1:ritardo=2300", "32#2:ritardo=2500",
                                         "32#3:ritardo=3500", "32#5:ritardo=2500"));
// The frame behind the CR comes after its request was given up.
INSTANTIATE_TEST_SUITE_P(BehindACr, LateAnswer,
                         testing::Values("33#1:cr-prima", "33#2:cr-prima", "33#4:cr-prima",
                                         "32#1:cr-prima", "32#3:cr-prima", "32#5:cr-prima"));

}  // namespace
}  // namespace orlo::end_to_end
