#include "acquisition/memory_counters.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(MemoryCounters, AreCutAtTheirDistances)
{
    const MemoryCounters counters =
        CutMemoryCounters("TPnt 00041 TrInMemory 00012 TpntOld 00003 TpntNew 00041");
    EXPECT_EQ(counters.TPnt, "00041");
    EXPECT_EQ(counters.TrInMemory, "00012");
    EXPECT_EQ(counters.TpntOld, "00003");
    EXPECT_EQ(counters.TpntNew, "00041");
}

TEST(MemoryCounters, OrderAndSeparatorsDoNotMatter)
{
    const MemoryCounters counters =
        CutMemoryCounters("TpntNew=00009,TpntOld=00001;TrInMemory:00008/TPnt 00007");
    EXPECT_EQ(counters.TPnt, "00007");
    EXPECT_EQ(counters.TrInMemory, "00008");
    EXPECT_EQ(counters.TpntOld, "00001");
    EXPECT_EQ(counters.TpntNew, "00009");
}

TEST(MemoryCounters, MissingLabelTakesTheDistanceFromTheStartOfTheText)
{
    const MemoryCounters counters = CutMemoryCounters("abcdefghijklmnopqrst");
    EXPECT_EQ(counters.TPnt, "efghi");
    EXPECT_EQ(counters.TrInMemory, "klmno");
    EXPECT_EQ(counters.TpntOld, "hijkl");
    EXPECT_EQ(counters.TpntNew, "hijkl");
}

TEST(MemoryCounters, ShortAnswersGiveWhatTheyHave)
{
    EXPECT_EQ(CutMemoryCounters("").TPnt, "");
    EXPECT_EQ(CutMemoryCounters("TPnt 12").TPnt, "12");
    EXPECT_EQ(CutMemoryCounters("RX ERROR").TPnt, "RROR");
    EXPECT_EQ(CutMemoryCounters("RX ERROR").TrInMemory, "");
}

TEST(MemoryCounters, CountersThatAreNoNumberAreZero)
{
    for (const auto& [counter, value] : {std::pair{"00041", 41},
                                         {"", 0},
                                         {"RROR", 0},
                                         {"0004x", 4},
                                         {"  012", 12},
                                         {"99999", 99999},
                                         {"-0001", -1}})
        EXPECT_EQ(CounterValue(counter), value) << counter;
}

TEST(MemoryCounters, ToAcquireIsOneLessWhereThePointerIsTheCount)
{
    struct Case {
        MemoryCounting counting;
        const char* answered;
        const char* corrected;
    };
    const Case cases[] = {
        {MemoryCounting::PointerIsCount, "00000", "00000"},
        {MemoryCounting::PointerIsCount, "00001", "00000"},
        {MemoryCounting::PointerIsCount, "00012", "00011"},
        {MemoryCounting::PointerIsCount, "10000", "09999"},
        {MemoryCounting::PointerIsCount, "", ""},
        {MemoryCounting::PointerPlusOne, "00012", "00012"},
        {MemoryCounting::PointerPlusOne, "00001", "00001"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CorrectedTrInMemory(c.counting, c.answered), c.corrected) << c.answered;
}

TEST(MemoryCounters, PunchesInMemoryByTheModelsCounting)
{
    EXPECT_EQ(PunchesInMemory(MemoryCounting::PointerPlusOne, "00041"), 42);
    EXPECT_EQ(PunchesInMemory(MemoryCounting::PointerIsCount, "00041"), 41);
}

}  // namespace
}  // namespace orlo
