#pragma once

#include <string>
#include <string_view>

namespace orlo
{

/// The texts of one line of the punch file: date CCYYMMDD, time HHMM, direction code "1" entry, "2"
/// exit, "0" other, badge 6, cause 4, terminal number 2 characters.
struct PunchLine {
    std::string date;
    std::string time;
    std::string code;
    std::string badge;
    std::string cause;
    std::string terminal;
};

/// Layout 0, 32 characters without separators:
///
///   position  length  content
///   1         2       "31"
///   3         8       date CCYYMMDD
///   11        4       time HHMM
///   15        3       "000"
///   18        1       direction code
///   19        4       "0000"
///   23        6       badge
///   29        2       last two characters of the cause
///   31        2       terminal number
std::string ComponeRigaStandard(const PunchLine& punch);

/// Layout 1, 258 characters:
///
///   position  length  content
///   1         4       blanks
///   5         1       "0"
///   6         2       terminal number
///   8         1       blank
///   9         2       plant code, see PlantCodeField
///   11        3       blanks
///   14        6       last six characters of the badge
///   20        1       direction, recoded: entry "0", exit "1"
///   21        1       blank
///   22        3       last three characters of the cause
///   25        2       day
///   27        2       month
///   29        4       year with century
///   33        4       time HHMM
///   37        222     blanks
std::string ComponeRigaEstesa(const PunchLine& punch, std::string_view plant_code);

/// Two characters: blanks for no code, a blank before a code of one character, otherwise the first
/// two. Blanks around the code do not count.
std::string PlantCodeField(std::string_view plant_code);

}  // namespace orlo
