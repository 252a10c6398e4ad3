#pragma once

#include "simulator/punch.h"
#include "simulator/terminal_model.h"

#include <cstddef>
#include <cstdint>
#include <istream>
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

/// One punch a line, oldest first. Empty lines and those that begin with "#" are passed over.
/// Throws UsageError that names the line.
std::vector<Punch> ReadPunches(std::istream& lines);

}  // namespace orlo::simulator
