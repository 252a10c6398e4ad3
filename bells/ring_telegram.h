#pragma once

#include "registry/terminal_type.h"

#include <QString>

#include <optional>
#include <string>

namespace orlo
{

// The command that sends one ring, in the fields of its line of the list:
//
//   Spaced  "13 " position " " hour " " minute " " day flags " " relay " " duration
//   Dense   "13"  position " " hour " " minute " " day flags " " relay " 0" duration
//
// Position, hour, minute and duration have two digits, the flags are eight, the relay is 1 for A,
// else 2 for B, else 0. "13 01 08 30 01111100 1 05" and "1301 08 30 01111100 1 005" are the same
// ring: the two forms differ in a blank and a digit, as the terminals do.

/// The command of a line. Nothing for a line that this form does not send: its day flags alone
/// decide, even when it has a time.
std::optional<std::string> RingTelegram(BellTelegram form, const QString& line);

/// Takes all rings out of the terminal.
inline constexpr std::string_view kClearRings = "14CLEAR";

}  // namespace orlo
