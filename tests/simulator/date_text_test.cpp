#include "simulator/date_text.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono;

TEST(DateText, IsWrittenAndReadInTheItalianWay)
{
    const local_seconds moment =
        local_days(year(2006) / March / 5) + hours(7) + minutes(8) + seconds(9);
    EXPECT_EQ(DateText(moment), "05/03/2006");
    EXPECT_EQ(TimeText(moment), "07:08:09");
    EXPECT_EQ(DateOf("05/03/2006"), local_days(year(2006) / March / 5));
    EXPECT_EQ(DateOf("5/3/2006"), local_days(year(2006) / March / 5));
    EXPECT_EQ(DateOf("29/02/2004"), local_days(year(2004) / February / 29));
    EXPECT_EQ(TimeOf("07:08"), hours(7) + minutes(8));
    EXPECT_EQ(TimeOf("23:59:59"), hours(24) - seconds(1));
}

TEST(DateText, IsNoneWhenTheCalendarDoesNotHaveIt)
{
    for (const char* text :
         {"", "29/02/2005", "31/04/2006", "00/01/2006", "01/13/2006", "01/00/2006", "257/01/2006",
          "01/257/2006", "01/01/06", "01/01", "01-01-2006", "a/b/cccc", "01/01/2006/"})
        EXPECT_FALSE(DateOf(text)) << text;
    for (const char* text : {"", "24:00", "00:60", "00:00:60", "7", "07:08:09:10", "x:00", "-1:00"})
        EXPECT_FALSE(TimeOf(text)) << text;
}

}  // namespace
}  // namespace orlo::simulator
