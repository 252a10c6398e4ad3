#include "tests/end_to_end/fault_case.h"

namespace orlo::end_to_end
{

TEST_P(LineFault, LosesNoPunchThatWasNotAcknowledged)
{
    RunThroughTheFault();
}

}  // namespace orlo::end_to_end
