#include "bells/sort_suonerie.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace orlo
{
namespace
{

constexpr int kTerminal = 32;

class SortSuonerieTest : public testing::Test
{
protected:
    const std::unique_ptr<RingTable> table = std::make_unique<RingTable>();

    void Put(int day, const std::vector<RingEntry>& entries)
    {
        int ring = 0;
        for (const RingEntry& entry : entries) RingOf(*table, kTerminal, day, ++ring) = entry;
    }
    std::vector<RingEntry> First(int day, int count)
    {
        std::vector<RingEntry> entries;
        for (int ring = 1; ring <= count; ++ring)
            entries.push_back(RingOf(*table, kTerminal, day, ring));
        return entries;
    }
};

using Entries = std::vector<RingEntry>;

TEST_F(SortSuonerieTest, EmptySlotsGoToTheEnd)
{
    Put(0, {{0, 12, 0, 4}, {0, 0, 0, 0}, {0, 8, 30, 2}});
    SortSuonerie(*table, kTerminal);
    EXPECT_TRUE(First(0, 4) == (Entries{{0, 8, 30, 2}, {0, 12, 0, 4}, {}, {}}));
}

TEST_F(SortSuonerieTest, RingsOfOneTimeKeepTheirOrder)
{
    Put(6, {{0, 9, 0, 3}, {0, 8, 59, 1}, {0, 9, 0, 1}, {0, 9, 0, 2}});
    SortSuonerie(*table, kTerminal);
    EXPECT_TRUE(First(6, 4) == (Entries{{0, 8, 59, 1}, {0, 9, 0, 3}, {0, 9, 0, 1}, {0, 9, 0, 2}}));
}

TEST_F(SortSuonerieTest, ARingAtMidnightCountsAsEmptyWhateverItsDuration)
{
    Put(3, {{0, 0, 0, 7}, {0, 0, 1, 5}});
    SortSuonerie(*table, kTerminal);
    EXPECT_TRUE(First(3, 3) == (Entries{{0, 0, 1, 5}, {0, 0, 0, 7}, {}}));
}

TEST_F(SortSuonerieTest, TheLastSlotOfADayMovesToo)
{
    RingOf(*table, kTerminal, 2, 24) = {0, 23, 59, 1};
    SortSuonerie(*table, kTerminal);
    EXPECT_TRUE(First(2, 1) == (Entries{{0, 23, 59, 1}}));
    EXPECT_TRUE(RingOf(*table, kTerminal, 2, 24) == RingEntry{});
}

TEST_F(SortSuonerieTest, OtherTerminalsAreLeftAlone)
{
    RingOf(*table, 31, 0, 2) = {0, 8, 0, 1};
    Put(0, {{}, {0, 8, 0, 1}});
    SortSuonerie(*table, kTerminal);
    EXPECT_TRUE(RingOf(*table, 31, 0, 2) == (RingEntry{0, 8, 0, 1}));
    EXPECT_TRUE(First(0, 1) == (Entries{{0, 8, 0, 1}}));
}

TEST(RingSlot, IsDayTimes24PlusRingLessOne)
{
    EXPECT_EQ(RingSlot(0, 1), 0U);
    EXPECT_EQ(RingSlot(1, 1), 24U);
    EXPECT_EQ(RingSlot(6, 24), 167U);
}

}  // namespace
}  // namespace orlo
