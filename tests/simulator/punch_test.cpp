#include "simulator/punch.h"

#include "simulator/punch_source.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlo::simulator
{
namespace
{

TEST(PunchRecord, HasEveryFieldInItsPlace)
{
    //                                    event, unused, badge, cause, hour, minute, second, ...
    EXPECT_EQ(PunchRecord(ParsePunch("9 123456 0001 15/03/2006 08:30"), 1),
              "9"
              "0"
              "123456"
              "0001"
              "08"
              "30"
              "00"
              "15"
              "03"
              "06"
              "01");
    EXPECT_EQ(PunchRecord(ParsePunch("< 7 0 31/12/1999 23:59:58"), 32),
              "<"
              "0"
              "000007"
              "0000"
              "23"
              "59"
              "58"
              "31"
              "12"
              "99"
              "32");
}

TEST(PunchAnswer, EndsBehindTheLastRecord)
{
    const std::vector<Punch> punches = {ParsePunch("9 1 1 01/02/2003 04:05"),
                                        ParsePunch("1 2 0 01/02/2003 16:00")};
    EXPECT_EQ(PunchAnswer(punches, 4),
              "90000001000104050001020304"
              "10000002000016000001020304"
              "END");
    EXPECT_EQ(PunchAnswer({}, 4), "END");
}

}  // namespace
}  // namespace orlo::simulator
