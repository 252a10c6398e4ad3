#include "acquisition/monitor_blocks.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(MonitorBlocks, TheLastBlockIsOneBeyondThePointersTenth)
{
    const struct {
        const char* pointer;
        int last;
    } cases[] = {
        {"00000", 1},    {"00009", 1},     {"00010", 2}, {"00041", 5},
        {"09999", 1000}, {"-0001", 1},     {"-0012", 0}, {"-9999", -998},
        {"ABCDE", 1},    {"99999", 10000}, {"  041", 5},
    };
    for (const auto& [pointer, last] : cases) EXPECT_EQ(LastMonitorBlock(pointer), last) << pointer;
}

TEST(MonitorBlocks, RequestIsTheCodeAndTheIndexAsItIs)
{
    EXPECT_EQ(MonitorRequest(0), "300");
    EXPECT_EQ(MonitorRequest(7), "307");
    EXPECT_EQ(MonitorRequest(1000), "301000");
    EXPECT_EQ(MonitorRequest(10000), "3010000");
}

TEST(MonitorBlocks, OnlyAnAnswerThatBeginsWithEndEndsTheMemory)
{
    EXPECT_TRUE(IsEndOfMemory("END"));
    EXPECT_TRUE(IsEndOfMemory("END and more"));
    EXPECT_FALSE(IsEndOfMemory("9 12345600010830001503 0601END"));
    EXPECT_FALSE(IsEndOfMemory("EN"));
    EXPECT_FALSE(IsEndOfMemory(""));
}

TEST(MonitorBlocks, PunchesAreCountedByTheLengthOfTheAnswer)
{
    const struct {
        std::size_t length;
        int block;
        int read;
    } cases[] = {{0, 0, 0},   {25, 0, 0}, {26, 0, 1}, {263, 0, 10}, {263, 4, 50}, {55, 5, 52},
                 {19, 3, 30}, {27, 0, 1}, {52, 0, 2}, {260, 4, 50}, {286, 4, 51}};
    for (const auto& [length, block, read] : cases)
        EXPECT_EQ(PunchesRead(block, std::string(length, 'x')), read) << length << ", " << block;
}

}  // namespace
}  // namespace orlo
