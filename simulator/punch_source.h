#pragma once

#include "simulator/punch.h"
#include "simulator/terminal_model.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// Invented punches in the order of time, the same ones for the same seed on any machine:
/// entries, exits and others in the model's own event characters.
std::vector<Punch> InventPunches(std::size_t count, std::uint32_t seed, const TerminalModel& model);

/// One punch from "event badge cause date time", for example "9 123456 0001 15/03/2006 08:30":
/// badge up to 6 digits, cause up to 4, years 1981 to 2080 (the century does not travel on the
/// line), seconds may follow the minutes. Throws UsageError.
Punch ParsePunch(std::string_view line);

/// The moment of "15/03/2006" and "08:30[:ss]", years 1981 to 2080. Throws UsageError.
std::chrono::local_seconds ParsePunchTime(const std::string& date, const std::string& time);

/// Calls `parse` with each line that holds a punch. Empty lines and those that begin with "#" are
/// passed over. What `parse` throws as UsageError comes out of it with the number of the line.
void ForEachPunchLine(std::istream& lines, const std::function<void(const std::string&)>& parse);

/// One punch a line, oldest first. Throws UsageError that names the line.
std::vector<Punch> ReadPunches(std::istream& lines);

}  // namespace orlo::simulator
