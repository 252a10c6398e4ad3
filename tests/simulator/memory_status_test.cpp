#include "simulator/memory_status.h"

#include "simulator/punch_source.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

struct Case {
    const char* name;
    Counting counting;
    std::size_t held;
    std::size_t acquired;
    const char* status;
};

TEST(MemoryStatus, CountsAsItsModelDoes)
{
    using enum Counting;
    // clang-format off
    const Case cases[] = {
        {"from zero, some acquired", FromZero, 42, 30, "TPnt 00041 TrInMemory 00012 TpntOld 00030 TpntNew 00041"},
        {"from zero, one punch",     FromZero, 1, 0,   "TPnt 00000 TrInMemory 00001 TpntOld 00000 TpntNew 00000"},
        {"from zero, all acquired",  FromZero, 3, 3,   "TPnt 00002 TrInMemory 00000 TpntOld 00003 TpntNew 00002"},
        {"from zero, empty",         FromZero, 0, 0,   "TPnt -0001 TrInMemory 00000 TpntOld 00000 TpntNew 00000"},
        {"from one, some acquired",  FromOne,  42, 30, "TPnt 00042 TrInMemory 00013 TpntOld 00030 TpntNew 00041"},
        {"from one, all acquired",   FromOne,  3, 3,   "TPnt 00003 TrInMemory 00001 TpntOld 00003 TpntNew 00002"},
        {"from one, empty",          FromOne,  0, 0,   "TPnt 00000 TrInMemory 00000 TpntOld 00000 TpntNew 00000"},
        {"from zero, full",          FromZero, 10000, 0, "TPnt 09999 TrInMemory 10000 TpntOld 00000 TpntNew 09999"},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const PunchMemory memory(InventPunches(c.held, 1, *FindModel("Strale")), c.acquired);
        EXPECT_EQ(MemoryStatus(c.counting, memory), c.status);
    }
}

TEST(TerminalModels, CountFromZeroExceptOrloTre)
{
    ASSERT_EQ(TerminalModels().size(), 6U);
    for (const TerminalModel& model : TerminalModels())
        EXPECT_EQ(model.counting == Counting::FromOne, model.name == "OrloTre") << model.name;
}

}  // namespace
}  // namespace orlo::simulator
