#include "simulator/punch_memory.h"

#include "simulator/punch_source.h"

#include <gtest/gtest.h>

#include <string>

namespace orlo::simulator
{
namespace
{

/// Punches with the badges 000001, 000002, … oldest first.
std::vector<Punch> Numbered(int count)
{
    std::vector<Punch> punches;
    for (int i = 1; i <= count; ++i)
        punches.push_back(ParsePunch("9 " + std::to_string(i) + " 0 15/03/2006 08:30"));
    return punches;
}

template <typename Punches>
std::string FirstAndLast(const Punches& punches)
{
    return punches.empty() ? "" : punches.front().badge + "-" + punches.back().badge;
}

TEST(PunchMemory, AdvancesOnlyWhenTheHandedOverIsAcknowledged)
{
    PunchMemory memory(Numbered(25), 0);
    EXPECT_EQ(FirstAndLast(memory.HandOver(10)), "000001-000010");
    EXPECT_EQ(memory.Acquired(), 0U);
    EXPECT_EQ(FirstAndLast(memory.HandOver(10)), "000001-000010");
    memory.Acknowledge();
    EXPECT_EQ(memory.Acquired(), 10U);
    EXPECT_EQ(memory.ToAcquire(), 15U);
    EXPECT_EQ(memory.Held(), 25U);
    EXPECT_EQ(FirstAndLast(memory.HandOver(10)), "000011-000020");
}

TEST(PunchMemory, AcknowledgesNothingWhenNothingIsOutstanding)
{
    PunchMemory memory(Numbered(25), 0);
    memory.Acknowledge();
    EXPECT_EQ(memory.Acquired(), 0U);
    memory.HandOver(10);
    memory.Acknowledge();
    memory.Acknowledge();
    EXPECT_EQ(memory.Acquired(), 10U);
}

TEST(PunchMemory, AcknowledgesAsManyAsWereHandedOverLast)
{
    PunchMemory memory(Numbered(25), 0);
    memory.HandOver(12);
    memory.HandOver(3);
    memory.Acknowledge();
    EXPECT_EQ(memory.Acquired(), 3U);
}

TEST(PunchMemory, HandsOverNothingAtTheEnd)
{
    PunchMemory memory(Numbered(4), 3);
    EXPECT_EQ(FirstAndLast(memory.HandOver(10)), "000004-000004");
    memory.Acknowledge();
    EXPECT_TRUE(memory.HandOver(10).empty());
    memory.Acknowledge();
    EXPECT_EQ(memory.Acquired(), 4U);
}

TEST(PunchMemory, ListsTheNewestFirstInBlocksOfTen)
{
    const PunchMemory memory(Numbered(25), 20);
    EXPECT_EQ(FirstAndLast(memory.Block(0)), "000025-000016");
    EXPECT_EQ(FirstAndLast(memory.Block(1)), "000015-000006");
    EXPECT_EQ(FirstAndLast(memory.Block(2)), "000005-000001");
    EXPECT_TRUE(memory.Block(3).empty());
    EXPECT_TRUE(memory.Block(999999999).empty());
    EXPECT_TRUE(PunchMemory({}, 0).Block(0).empty());
}

}  // namespace
}  // namespace orlo::simulator
