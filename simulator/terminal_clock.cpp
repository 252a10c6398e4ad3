#include "simulator/terminal_clock.h"

#include "simulator/digits.h"

#include <array>
#include <ctime>
#include <optional>
#include <utility>

namespace orlo::simulator
{

namespace
{

using std::chrono::days;
using std::chrono::local_seconds;

constexpr std::size_t kSettingLength = 13;
constexpr std::array<std::string_view, 7> kWeekdays = {"Dom", "Lun", "Mar", "Mer",
                                                       "Gio", "Ven", "Sab"};

std::optional<local_seconds> LocalTime(const std::tm& t)
{
    const std::chrono::year_month_day date(std::chrono::year(t.tm_year + 1900),
                                           std::chrono::month(static_cast<unsigned>(t.tm_mon + 1)),
                                           std::chrono::day(static_cast<unsigned>(t.tm_mday)));
    if (!date.ok() || t.tm_hour > 23 || t.tm_min > 59 || t.tm_sec > 59) return std::nullopt;
    return local_seconds(std::chrono::local_days(date)) + std::chrono::hours(t.tm_hour) +
           std::chrono::minutes(t.tm_min) + std::chrono::seconds(t.tm_sec);
}

std::string TwoDigits(auto value)
{
    return Digits(static_cast<long>(value), 2);
}

std::string DateText(std::chrono::local_days day)
{
    const std::chrono::year_month_day date(day);
    return TwoDigits(static_cast<unsigned>(date.day())) + "/" +
           TwoDigits(static_cast<unsigned>(date.month())) + "/" +
           TwoDigits(static_cast<int>(date.year()) % 100);
}

std::string TimeText(std::chrono::seconds since_midnight)
{
    const std::chrono::hh_mm_ss time(since_midnight);
    return TwoDigits(time.hours().count()) + ":" + TwoDigits(time.minutes().count()) + ":" +
           TwoDigits(time.seconds().count());
}

}  // namespace

LocalClock MachineClock()
{
    return [] {
        const std::time_t now = std::time(nullptr);
        std::tm broken_down{};
        localtime_r(&now, &broken_down);
        // A leap second, 60, is the only time of day that the calendar does not know.
        broken_down.tm_sec = broken_down.tm_sec > 59 ? 59 : broken_down.tm_sec;
        return LocalTime(broken_down).value_or(local_seconds{});
    };
}

TerminalClock::TerminalClock(LocalClock machine, std::chrono::seconds offset)
    : machine_(std::move(machine)), offset_(offset)
{
}

bool TerminalClock::Set(std::string_view fields)
{
    if (fields.size() != kSettingLength || fields.back() < '0' || fields.back() > '6') return false;
    std::array<int, 6> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::optional<int> value = NumberOf(fields.substr(2 * i, 2));
        if (!value) return false;
        values[i] = *value;
    }
    std::tm wanted{};
    wanted.tm_year = values[0] + 100;
    wanted.tm_mon = values[1] - 1;
    wanted.tm_mday = values[2];
    wanted.tm_hour = values[3];
    wanted.tm_min = values[4];
    wanted.tm_sec = values[5];
    const std::optional<local_seconds> time = LocalTime(wanted);
    if (!time) return false;
    offset_ = *time - machine_();
    last_setting_ = fields;
    return true;
}

//  long date                          short date
//  1   9  state, blank last           1   10  state, blanks last
//  10  12 "Mer 15/03/06"              11  8   "15/03/06"
//  22     blank, release, blank       19      blank, release
//  last 8 "08:30:00"                  last 9  " 08:30:00"
//
// The reader's release begins with the last character of the state, so that one is a blank.
std::string ClockAnswer(ClockLayout layout, local_seconds now, std::string_view release)
{
    const auto day = std::chrono::floor<days>(now);
    const std::string tail = DateText(day) + " " + std::string(release) + " " + TimeText(now - day);
    if (layout == ClockLayout::ShortDate) return "IN LINEA  " + tail;
    const std::string_view weekday = kWeekdays[std::chrono::weekday(day).c_encoding()];
    return "IN LINEA " + std::string(weekday) + " " + tail;
}

}  // namespace orlo::simulator
