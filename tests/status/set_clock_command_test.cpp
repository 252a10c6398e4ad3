#include "status/set_clock_command.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlo
{
namespace
{

/// Every reading of the date or of the time brings the next of a list; the last one stays.
class ReadingsClock : public Clock
{
public:
    ReadingsClock(std::vector<QDate> dates, std::vector<QTime> times)
        : dates_(std::move(dates)), times_(std::move(times))
    {
    }

    QDate Date() override { return dates_.at(std::min(dates_read++, dates_.size() - 1)); }
    QTime Time() override { return times_.at(std::min(times_read++, times_.size() - 1)); }

    double SecondsSinceMidnight() override { return 0; }
    std::chrono::milliseconds Monotonic() override { return {}; }
    void YieldToEventLoop() override {}
    void ProcessPendingEvents() override {}
    void SleepUntilInput(SerialPortControl&, std::chrono::milliseconds) override {}

    std::size_t dates_read = 0;
    std::size_t times_read = 0;

private:
    std::vector<QDate> dates_;
    std::vector<QTime> times_;
};

TEST(SetClockCommand, HasFifteenCharactersInTheirOrder)
{
    struct Case {
        const char* name;
        QDate date;
        QTime time;
        const char* command;
    };
    const Case cases[] = {
        {"Sunday is 0", {2006, 3, 5}, {14, 7, 9}, "010603051407090"},
        {"Monday is 1", {2006, 3, 6}, {0, 0, 0}, "010603060000001"},
        {"Tuesday is 2", {2006, 3, 7}, {1, 2, 3}, "010603070102032"},
        {"Wednesday is 3", {2006, 3, 8}, {9, 9, 9}, "010603080909093"},
        {"Thursday is 4", {2006, 3, 9}, {12, 0, 0}, "010603091200004"},
        {"Friday is 5", {2006, 3, 10}, {13, 59, 59}, "010603101359595"},
        {"Saturday is 6", {2006, 3, 11}, {23, 59, 59}, "010603112359596"},
        {"leap day", {2024, 2, 29}, {10, 11, 12}, "012402291011124"},
        {"turn of the century", {2100, 12, 31}, {23, 0, 5}, "010012312300055"},
        {"last century", {1999, 12, 31}, {23, 59, 0}, "019912312359005"},
    };
    for (const Case& c : cases) {
        ReadingsClock clock({c.date}, {c.time});
        EXPECT_EQ(SetClockCommand(clock), c.command) << c.name;
    }
}

TEST(SetClockCommand, EachFieldHasAReadingOfItsOwn)
{
    ReadingsClock clock({{2001, 1, 1}, {2002, 2, 2}, {2003, 3, 3}, {2006, 3, 11}},
                        {{4, 40, 41}, {5, 50, 51}, {6, 60 - 1, 59}});
    EXPECT_EQ(SetClockCommand(clock), "010102030450596");
    EXPECT_EQ(clock.dates_read, 4U);
    EXPECT_EQ(clock.times_read, 3U);
}

}  // namespace
}  // namespace orlo
