#pragma once

#include "registry/contenitore.h"

namespace orlo
{

// The badge layout of a serial terminal, the prepared one: a telegram for each field.

/// No answer is checked: a field whose answer is missing or bad becomes 0.
void ReadSerialBadgeFormat(Contenitore& window, const TerminalModel& model);

/// Tells the operator what is missing or too long, before the port is opened; the answers are not
/// checked.
void SendSerialBadgeFormat(Contenitore& window, const TerminalModel& model);

}  // namespace orlo
