#include "simulator/line_pace.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;

Transmission Bytes(std::string bytes)
{
    Transmission transmission;
    transmission.bytes = std::move(bytes);
    return transmission;
}

TEST(LinePace, SendsAtOnceOnALineWithoutSpeed)
{
    const auto events = LinePace(0).Schedule(Bytes("0123456789"), 5ms);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].due, 5ms);
    EXPECT_EQ(events[0].bytes, "0123456789");
    EXPECT_TRUE(LinePace(0).Schedule(Bytes(""), 5ms).empty());
}

TEST(LinePace, SendsEachPieceWhenItsLastBitIsThrough)
{
    // 10000 bit/s: a byte a millisecond.
    const auto events = LinePace(10000).Schedule(Bytes("0123456789"), 5ms);
    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[0].due, 9ms);
    EXPECT_EQ(events[0].bytes, "0123");
    EXPECT_EQ(events[1].due, 13ms);
    EXPECT_EQ(events[1].bytes, "4567");
    EXPECT_EQ(events[2].due, 15ms);
    EXPECT_EQ(events[2].bytes, "89");
}

TEST(LinePace, LetsNoRoundingAddUp)
{
    // 19200 bit/s: 520.83 microseconds a byte; 263 bytes take 136 979 166.67 nanoseconds.
    const auto events = LinePace(19200).Schedule(Bytes(std::string(263, 'x')), 0ns);
    EXPECT_EQ(events.front().due, 2083334ns);
    EXPECT_EQ(events.back().due, 136979167ns);
}

TEST(LinePace, HearsTheBytesOfABurstOneAfterTheOther)
{
    LinePace pace(10000);
    EXPECT_EQ(pace.Heard(100ms), 101ms);
    EXPECT_EQ(pace.Heard(100ms), 102ms);
    EXPECT_EQ(pace.Heard(100ms), 103ms);
    EXPECT_EQ(pace.Heard(102ms), 104ms) << "still behind the first three";
    EXPECT_EQ(pace.Heard(200ms), 201ms) << "the line was idle";
}

TEST(LinePace, HearsAtOnceOnALineWithoutSpeed)
{
    LinePace pace(0);
    EXPECT_EQ(pace.Heard(100ms), 100ms);
    EXPECT_EQ(pace.Heard(100ms), 100ms);
    EXPECT_EQ(pace.Heard(101ms), 101ms);
}

TEST(LinePace, SendsByteByByteWithPauses)
{
    Transmission transmission = Bytes("abc");
    transmission.byte_pause = 5ms;
    for (const int speed : {0, 10000}) {
        const auto events = LinePace(speed).Schedule(transmission, 100ms);
        ASSERT_EQ(events.size(), 3U);
        EXPECT_EQ(events[0].due, 105ms);
        EXPECT_EQ(events[1].due, 110ms);
        EXPECT_EQ(events[2].due, 115ms);
        EXPECT_EQ(events[2].bytes, "c");
    }
    const auto slow_line = LinePace(1000).Schedule(transmission, 100ms);
    ASSERT_EQ(slow_line.size(), 3U);
    EXPECT_EQ(slow_line[2].due, 130ms) << "the line needs longer than the pause";
}

TEST(LinePace, LosesTheLineBehindTheLastPiece)
{
    Transmission transmission = Bytes("abcdef");
    transmission.hang_up = 300ms;
    const auto events = LinePace(10000).Schedule(transmission, 0ms);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_FALSE(events[0].hang_up);
    EXPECT_EQ(events[1].hang_up, 300ms);

    transmission.bytes.clear();
    const auto silent = LinePace(10000).Schedule(transmission, 7ms);
    ASSERT_EQ(silent.size(), 1U);
    EXPECT_EQ(silent[0].due, 7ms);
    EXPECT_EQ(silent[0].hang_up, 300ms);
}

}  // namespace
}  // namespace orlo::simulator
