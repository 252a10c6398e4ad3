#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orlo::end_to_end
{

/// One passage at a terminal, in the words of the simulator's punch file.
struct Punch {
    char event = '9';
    std::string badge;  // 6 digits
    std::string cause;  // 4 digits
    std::string day, month, year;
    std::string hour, minute;
};

/// So many punches, no two alike, with every event that means something to some model and one that
/// means nothing, and dates on both sides of the turn of the century.
std::vector<Punch> VariedPunches(std::size_t count);

/// The simulator's punch file.
std::string PunchSource(const std::vector<Punch>& punches);

using Lines = std::vector<std::string>;

/// The lines of layout 0 that the payroll program expects. `entries` and `exits` are the event
/// characters of the model.
Lines StandardLines(const std::vector<Punch>& punches, int terminal, std::string_view entries,
                    std::string_view exits);

/// The lines of layout 1 with plant code "AZ". An event of neither kind repeats the line before it
/// in the same answer of ten, an empty one at its beginning.
Lines ExtendedLines(const std::vector<Punch>& punches, int terminal, std::string_view entries,
                    std::string_view exits);

}  // namespace orlo::end_to_end
