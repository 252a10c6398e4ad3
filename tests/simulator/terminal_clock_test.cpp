#include "simulator/terminal_clock.h"

#include "tests/simulator/wall.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

std::string LastOf(const std::string& text, std::size_t count)
{
    return text.substr(text.size() - count);
}

TEST(ClockAnswer, PutsTheLongDateWhereItsReadersCut)
{
    const std::string answer = ClockAnswer(ClockLayout::LongDate, StoppedClock()(), "Rel. 2.31");
    EXPECT_EQ(answer, "IN LINEA Mer 15/03/06 Rel. 2.31 08:30:00");
    EXPECT_EQ(answer.substr(10 - 1, 12), "Mer 15/03/06");
    EXPECT_EQ(LastOf(answer, 8), "08:30:00");
    EXPECT_EQ(answer.substr(0, 9), "IN LINEA ");
    EXPECT_EQ(answer.substr(9 - 1), " Mer 15/03/06 Rel. 2.31 08:30:00");
}

TEST(ClockAnswer, PutsTheShortDateWhereItsReadersCut)
{
    const std::string answer = ClockAnswer(ClockLayout::ShortDate, StoppedClock()(), "Rel. 5.11");
    EXPECT_EQ(answer, "IN LINEA  15/03/06 Rel. 5.11 08:30:00");
    EXPECT_EQ(answer.substr(11 - 1, 8), "15/03/06");
    EXPECT_EQ(LastOf(answer, 9), " 08:30:00");
    EXPECT_EQ(answer.substr(0, 10), "IN LINEA  ");
    EXPECT_EQ(answer.substr(10 - 1), " 15/03/06 Rel. 5.11 08:30:00");
}

TEST(TerminalClock, IsAsFarOffAsToldAtFirst)
{
    const TerminalClock clock(StoppedClock(), std::chrono::seconds(-90));
    EXPECT_EQ(ClockAnswer(ClockLayout::ShortDate, clock.Now(), "r"),
              "IN LINEA  15/03/06 r 08:28:30");
}

TEST(TerminalClock, TakesTheTimeItIsSetTo)
{
    TerminalClock clock(StoppedClock(), std::chrono::seconds(0));
    ASSERT_TRUE(clock.Set("0603151207093"));
    EXPECT_EQ(clock.Offset(), std::chrono::seconds(3 * 3600 + 37 * 60 + 9));
    EXPECT_EQ(clock.LastSetting(), "0603151207093");
    EXPECT_EQ(ClockAnswer(ClockLayout::ShortDate, clock.Now(), "r"),
              "IN LINEA  15/03/06 r 12:07:09");
}

TEST(TerminalClock, GoesOnFromTheTimeItIsSetTo)
{
    auto now = StoppedClock()();
    TerminalClock clock([&now] { return now; }, std::chrono::seconds(0));
    ASSERT_TRUE(clock.Set("0612312359590"));
    now += std::chrono::seconds(2);
    EXPECT_EQ(ClockAnswer(ClockLayout::LongDate, clock.Now(), "r"),
              "IN LINEA Lun 01/01/07 r 00:00:01");
}

TEST(TerminalClock, RefusesWhatIsNoDateAndTime)
{
    TerminalClock clock(StoppedClock(), std::chrono::seconds(5));
    for (const char* fields : {"", "060315120709", "06031512070933", "0613151207093",
                               "0600151207093", "0602301207093", "0603152407093", "0603151260093",
                               "0603151207603", "0603151207097", "06031512070 3", "xx03151207093"})
        EXPECT_FALSE(clock.Set(fields)) << fields;
    EXPECT_EQ(clock.Offset(), std::chrono::seconds(5));
    EXPECT_EQ(clock.LastSetting(), "");
}

}  // namespace
}  // namespace orlo::simulator
