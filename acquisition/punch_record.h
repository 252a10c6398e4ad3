#pragma once

#include <string>
#include <string_view>

namespace orlo
{

// One punch as a serial terminal sends it, 26 characters, several one after another:
//
//   position  length  field
//   1         1       event character
//   2         1       not used
//   3         6       badge number
//   9         4       cause code
//   13        2       hour
//   15        2       minute
//   17        2       not used
//   19        2       day
//   21        2       month
//   23        2       year, two digits
//   25        2       terminal number

inline constexpr std::size_t kPunchRecordLength = 26;

/// Stands in place of the next record when the terminal has no more.
inline constexpr std::string_view kEndMark = "END";

/// One punch in the texts that the output lines are made of. A record cut short gives short fields.
struct PunchRecord {
    char event = ' ';
    std::string date;  ///< CCYYMMDD
    std::string time;  ///< HHMM
    std::string badge;
    std::string cause;
    std::string terminal;
};

/// Takes one record apart.
PunchRecord CutPunchRecord(std::string_view record);

/// "19" for a two-digit year above 80, otherwise "20": 80 is 2080, 81 is 1981.
std::string CenturyOf(std::string_view two_digit_year);

}  // namespace orlo
