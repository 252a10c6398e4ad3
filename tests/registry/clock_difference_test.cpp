#include "registry/clock_difference.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(ClockDifference, IsSaidOnlyWhenBothClocksCanBeRead)
{
    struct Case {
        const char* time;
        const char* date;
        const char* system;
        const char* difference;
    };
    const Case cases[] = {
        {"14:07:12", "05/03/2006", "05/03/2006 - 14:07:09", "+3 s"},
        {"14:07:08", "05/03/2006", "05/03/2006 - 14:07:09", "−1 s"},
        {"14:07:09", "05/03/2006", "05/03/2006 - 14:07:09", "0 s"},
        {" 14:07:09", "05/03/06", "05/03/2006 - 14:07:09", "0 s"},
        {"00:00:01", "06/03/2006", "05/03/2006 - 23:59:59", "+2 s"},
        {"14:08:09", "05/03/2006", "05/03/2006 - 14:07:09", "+1 min"},
        {"13:07:09", "05/03/2006", "05/03/2006 - 14:07:09", "−1 h"},
        {"14:07:09", "01/01/2000", "01/01/2001 - 14:07:09", "−366 g"},
        {"", "", "05/03/2006 - 14:07:09", ""},
        {"14:07:09", "05/03/2006", "", ""},
        {"14:07:09", "", "05/03/2006 - 14:07:09", ""},
        {"RX ERROR", "", "05/03/2006 - 14:07:09", ""},
        {"25:00:00", "05/03/2006", "05/03/2006 - 14:07:09", ""},
        {"14:07:09", "31/02/2006", "05/03/2006 - 14:07:09", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ClockDifference(QString::fromUtf8(c.time), QString::fromUtf8(c.date),
                                  QString::fromUtf8(c.system)),
                  QString::fromUtf8(c.difference))
            << c.time << ' ' << c.date << " / " << c.system;
}

}  // namespace orlo
