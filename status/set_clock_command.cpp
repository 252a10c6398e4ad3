#include "status/set_clock_command.h"

namespace orlo
{

namespace
{

constexpr int kDaysOfWeek = 7;

std::string TwoDigits(int value)
{
    const std::string digits = std::to_string(value % 100);
    return digits.size() < 2 ? "0" + digits : digits;
}

}  // namespace

//  position  length  content
//  1         2       "01"
//  3         2       year
//  5         2       month
//  7         2       day
//  9         2       hour, 0 to 23
//  11        2       minutes
//  13        2       seconds
//  15        1       day of the week, Sunday 0 to Saturday 6
//
// Each field has a reading of the clock of its own, four of the date and three of the time. Keep
// seven readings: with one for all, a second that ends between them would give another command.
std::string SetClockCommand(Clock& clock)
{
    std::string command = "01";
    command += TwoDigits(clock.Date().year());
    command += TwoDigits(clock.Date().month());
    command += TwoDigits(clock.Date().day());
    command += TwoDigits(clock.Time().hour());
    command += TwoDigits(clock.Time().minute());
    command += TwoDigits(clock.Time().second());
    // Qt counts Monday 1 to Sunday 7.
    command += std::to_string(clock.Date().dayOfWeek() % kDaysOfWeek);
    return command;
}

}  // namespace orlo
