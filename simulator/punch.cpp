#include "simulator/punch.h"

#include "simulator/digits.h"

namespace orlo::simulator
{

//  position  width  record
//  1         1      event character
//  2         1      "0", read by nobody
//  3         6      badge
//  9         4      cause
//  13        2      hour
//  15        2      minute
//  17        2      second, read by nobody
//  19        2      day
//  21        2      month
//  23        2      year without century
//  25        2      terminal number
std::string PunchRecord(const Punch& punch, int terminal)
{
    const auto day = std::chrono::floor<std::chrono::days>(punch.at);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(punch.at - day);
    const auto two = [](auto value) { return Digits(static_cast<long>(value), 2); };

    return punch.event + ("0" + punch.badge) + punch.cause + two(time.hours().count()) +
           two(time.minutes().count()) + two(time.seconds().count()) +
           two(static_cast<unsigned>(date.day())) + two(static_cast<unsigned>(date.month())) +
           two(static_cast<int>(date.year()) % 100) + two(terminal);
}

std::string PunchAnswer(std::span<const Punch> punches, int terminal)
{
    std::string answer;
    for (const Punch& punch : punches) answer += PunchRecord(punch, terminal);
    return answer + kEndOfRecords;
}

}  // namespace orlo::simulator
