#pragma once

#include "simulator/object_terminal.h"
#include "simulator/terminal.h"

#include <span>
#include <string>

namespace orlo::simulator
{

/// The state of every terminal as lines "number.key=value", for example "4.da_acquisire=12".
/// Keys: modello, timbrature, acquisite, da_acquisire, scarto (seconds), orologio (the fields of
/// the last setting), badge (as in the settings), suoneria_01 … suoneria_32 for those that ring:
/// "08:30 01111100 1 5".
std::string StateReport(std::span<const Terminal> terminals);

/// The same of Orlo and Sipa terminals. Keys: modello, timbrature, acquisite, da_acquisire, scarto,
/// formato ("name/length/bidirectional" and start, length and value of each field), suoneria_G_NN
/// for those that ring: "08:30 5".
std::string StateReport(std::span<const ObjectTerminal> terminals);

/// Writes a report so that a reader finds the old file or the whole new one. Throws
/// std::system_error.
void WriteStateReport(const std::string& path, const std::string& report);

}  // namespace orlo::simulator
