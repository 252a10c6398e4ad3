#include "simulator/bell_table.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

TEST(BellTable, TakesARingInItsOwnLayout)
{
    const std::pair<BellLayout, const char*> cases[] = {
        {BellLayout::Spaced, " 01 08 30 01111100 1 05"},
        {BellLayout::Compact, "01 08 30 01111100 1 005"},
    };
    for (const auto& [layout, text] : cases) {
        SCOPED_TRACE(text);
        BellTable bells(layout);
        EXPECT_EQ(bells.Put(text), 1);
        ASSERT_EQ(bells.Rings().count(1), 1U);
        const Bell& bell = bells.Rings().at(1);
        EXPECT_EQ(bell.hour, 8);
        EXPECT_EQ(bell.minute, 30);
        EXPECT_EQ(bell.days, "01111100");
        EXPECT_EQ(bell.relay, 1);
        EXPECT_EQ(bell.duration, 5);
    }
}

TEST(BellTable, RefusesTheOtherLayout)
{
    EXPECT_EQ(BellTable(BellLayout::Compact).Put(" 01 08 30 01111100 1 05"), std::nullopt);
    EXPECT_EQ(BellTable(BellLayout::Spaced).Put("01 08 30 01111100 1 005"), std::nullopt);
    EXPECT_EQ(BellTable(BellLayout::Spaced).Put("01 08 30 01111100 1 05"), std::nullopt);
    EXPECT_EQ(BellTable(BellLayout::Spaced).Put(" 01 08 30 01111100 1 005"), std::nullopt);
}

TEST(BellTable, RefusesWhatIsOutOfRange)
{
    BellTable bells(BellLayout::Spaced);
    for (const char* text :
         {"", " ", " 00 08 30 01111100 1 05", " 33 08 30 01111100 1 05", " 01 24 30 01111100 1 05",
          " 01 08 60 01111100 1 05", " 01 08 30 01111102 1 05", " 01 08 30 0111110 1 05",
          " 01 08 30 01111100 3 05", " 01 08 30 01111100 1 0x", " 01 08 30 01111100 1 05 ",
          " 01  08 30 01111100 1 05"})
        EXPECT_EQ(bells.Put(text), std::nullopt) << text;
    EXPECT_TRUE(bells.Rings().empty());
}

TEST(BellTable, ARingOnNoDayEmptiesItsPosition)
{
    BellTable bells(BellLayout::Spaced);
    bells.Put(" 01 08 30 01111100 1 05");
    bells.Put(" 32 17 00 10000001 2 99");
    EXPECT_EQ(bells.Put(" 01 00 00 00000000 0 00"), 1);
    EXPECT_EQ(bells.Rings().size(), 1U);
    EXPECT_EQ(bells.Rings().count(32), 1U);
}

TEST(BellTable, ClearsEveryRing)
{
    BellTable bells(BellLayout::Compact);
    bells.Put("01 08 30 01111100 1 005");
    bells.Put("02 17 00 01111100 2 010");
    bells.Clear();
    EXPECT_TRUE(bells.Rings().empty());
}

}  // namespace
}  // namespace orlo::simulator
