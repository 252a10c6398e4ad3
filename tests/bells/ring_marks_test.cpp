#include "bells/ring_marks.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(RingMarks, OfAWeekAreTheSlotsOfTheTerminalThatHaveATime)
{
    RingTable table{};
    RingOf(table, 4, 0, 1) = {0, 0, 1, 0};
    RingOf(table, 4, 6, 24) = {0, 23, 59, 10};
    RingOf(table, 4, 3, 2) = {0, 0, 0, 5};
    RingOf(table, 5, 3, 3) = {0, 8, 0, 5};
    const std::vector<RingMark> marks = {
        {.day = 0, .ring = 0, .minute = 1, .duration = 0},
        {.day = 6, .ring = 23, .minute = 1439, .duration = 10, .chosen = true},
    };
    EXPECT_TRUE(MarksOfWeek(table, 4, /*shown_day=*/6, /*entered_ring=*/23) == marks);
}

TEST(RingMarks, OfAWeekAreChosenOnTheDayThatIsShownOnly)
{
    RingTable table{};
    RingOf(table, 1, 2, 5) = {0, 8, 0, 5};
    RingOf(table, 1, 3, 5) = {0, 8, 0, 5};
    const auto marks = MarksOfWeek(table, 1, /*shown_day=*/3, /*entered_ring=*/4);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_FALSE(marks[0].chosen);
    EXPECT_TRUE(marks[1].chosen);
}

TEST(RingMarks, OfLinesAreOneForEachDay)
{
    const QStringList lines = {
        QStringLiteral("01   08:05     05     0 1 0 0 0 0 0 1    0 1"),
        QStringLiteral("02   00:00     00     0 0 0 0 0 0 0 0    0 0"),
        QStringLiteral("07   17:30     99     1 0 0 0 0 0 0 0    1 0"),
        QStringLiteral("09   00:00     12     0 0 1 0 0 0 0 0    0 0"),
    };
    const std::vector<RingMark> marks = {
        {.day = 1, .ring = 0, .minute = 485, .duration = 5, .hollow = true},
        {.day = 7, .ring = 0, .minute = 485, .duration = 5, .hollow = true},
        {.day = 0, .ring = 2, .minute = 1050, .duration = 99, .chosen = true},
        // Without a relay it does not sound.
        {.day = 2, .ring = 3, .minute = 0, .duration = 0},
    };
    EXPECT_TRUE(MarksOfLines(lines, /*chosen_line=*/2) == marks);
}

}  // namespace
}  // namespace orlo
