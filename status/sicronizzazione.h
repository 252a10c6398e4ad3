#pragma once

#include "status/clock_command.h"

namespace orlo
{

/// Sets the selected terminal's clock from the PC's. Done means: a serial terminal answered in a
/// good frame, an Orlo or Sipa took the time and its clock could be read back.
ClockOutcome cmdSincro_Click(Contenitore& window);

/// The same for the prepared terminal. Throws what the component throws.
ClockOutcome Sicronizzazione(Contenitore& window);

}  // namespace orlo
