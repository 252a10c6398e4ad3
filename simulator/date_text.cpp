#include "simulator/date_text.h"

#include "simulator/digits.h"

#include <vector>

namespace orlo::simulator
{

std::string DateText(std::chrono::local_seconds moment)
{
    const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(moment));
    return Digits(static_cast<long>(static_cast<unsigned>(date.day())), 2) + "/" +
           Digits(static_cast<long>(static_cast<unsigned>(date.month())), 2) + "/" +
           Digits(static_cast<int>(date.year()), 4);
}

std::string TimeText(std::chrono::local_seconds moment)
{
    const std::chrono::hh_mm_ss time(moment - std::chrono::floor<std::chrono::days>(moment));
    return Digits(time.hours().count(), 2) + ":" + Digits(time.minutes().count(), 2) + ":" +
           Digits(time.seconds().count(), 2);
}

std::optional<std::chrono::local_days> DateOf(std::string_view text)
{
    const std::vector<std::string> parts = Split(text, '/');
    if (parts.size() != 3 || parts[2].size() != 4) return std::nullopt;
    const int day = NumberOf(parts[0]).value_or(0);
    const int month = NumberOf(parts[1]).value_or(0);
    const int year = NumberOf(parts[2]).value_or(0);
    if (day > 31 || month > 12) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok()) return std::nullopt;
    return std::chrono::local_days(date);
}

std::optional<std::chrono::seconds> TimeOf(std::string_view text)
{
    std::vector<std::string> parts = Split(text, ':');
    if (parts.size() == 2) parts.emplace_back("00");
    if (parts.size() != 3) return std::nullopt;
    const int hour = NumberOf(parts[0]).value_or(99);
    const int minute = NumberOf(parts[1]).value_or(99);
    const int second = NumberOf(parts[2]).value_or(99);
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

}  // namespace orlo::simulator
