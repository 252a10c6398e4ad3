#include "bells/ring_text.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(RingText, ATimeHasAllItsDigits)
{
    EXPECT_EQ(RingTimeText({7, 5}), QStringLiteral("07:05"));
    EXPECT_EQ(RingTimeText({0, 0}), QStringLiteral("00:00"));
    EXPECT_EQ(RingTimeText({9, 10}), QStringLiteral("09:10"));
    EXPECT_EQ(RingTimeText({10, 9}), QStringLiteral("10:09"));
    EXPECT_EQ(RingTimeText({23, 59}), QStringLiteral("23:59"));
}

struct Case {
    const char* typed;
    std::optional<RingTime> time;
};

TEST(RingText, ATimeIsTakenAsAPersonWritesIt)
{
    const Case cases[] = {
        {"07:05", RingTime{7, 5}},   {"7:5", RingTime{7, 5}},  {"7 :5 ", RingTime{7, 5}},
        {"8", RingTime{8, 0}},       {"08", RingTime{8, 0}},   {"8:", RingTime{8, 0}},
        {":30", RingTime{0, 30}},    {"", RingTime{0, 0}},     {":", RingTime{0, 0}},
        {"  :  ", RingTime{0, 0}},   {"730", RingTime{7, 30}}, {"1745", RingTime{17, 45}},
        {"23:59", RingTime{23, 59}}, {"24:00", std::nullopt},  {"7:60", std::nullopt},
        {"7:5:1", std::nullopt},     {"sette", std::nullopt},  {"-1:00", std::nullopt},
        {"12345", std::nullopt},     {"100:00", std::nullopt},
    };
    for (const Case& test : cases)
        EXPECT_TRUE(RingTimeOf(QString::fromLatin1(test.typed)) == test.time) << test.typed;
}

TEST(RingText, ADurationAbove10Is10)
{
    const std::pair<const char*, const char*> cases[] = {
        {"25", "10"}, {"10", "10"}, {"11", "10"}, {"5", "5"},  {"05", "5"},
        {"0", "0"},   {"", "0"},    {"x", "0"},   {"-3", "0"}, {"99999", "10"},
    };
    for (const auto& [typed, shown] : cases)
        EXPECT_EQ(DurationText(QString::fromLatin1(typed)), QString::fromLatin1(shown)) << typed;
}

TEST(RingText, ATimeOutOfTheDayIsDrawnAtItsEnd)
{
    EXPECT_EQ(MinuteOfDay({7, 5}), 425);
    EXPECT_EQ(MinuteOfDay({99, 0}), 1439);
    EXPECT_EQ(MinuteOfDay({-1, 0}), 0);
}

}  // namespace
}  // namespace orlo
