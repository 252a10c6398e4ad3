#include "registry/wait_terminal_delay.h"

#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

TEST(WaitTerminalDelay, WaitsTheCurrentTerminalsDelay)
{
    testing::TestWorkstation pc;
    ProgramState state;
    state.TerminalTable[6].Ritardo = 2.0F;
    state.CurrentTerminalNumber = 7;
    WaitTerminalDelay(state, pc.workstation);
    EXPECT_GE(pc.clock.Passed(), 1990ms);
    EXPECT_LE(pc.clock.Passed(), 2060ms);

    state.CurrentTerminalNumber = 8;
    const auto before = pc.clock.Passed();
    WaitTerminalDelay(state, pc.workstation);
    EXPECT_EQ(pc.clock.Passed(), before) << "a delay of 0 returns at once";
}

TEST(WaitTerminalDelay, TerminalOutsideTheTableIsOutOfRange)
{
    testing::TestWorkstation pc;
    ProgramState state;
    for (const int terminal : {0, 33, -1}) {
        state.CurrentTerminalNumber = static_cast<std::int16_t>(terminal);
        EXPECT_THROW(WaitTerminalDelay(state, pc.workstation), std::out_of_range) << terminal;
    }
}

}  // namespace
}  // namespace orlo
