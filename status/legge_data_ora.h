#pragma once

#include "status/clock_command.h"

namespace orlo
{

/// Reads the selected terminal's clock.
void cmdLeggeOra_Click(Contenitore& window);

/// The same for the prepared terminal: its date and time, and the PC's beside them. An answer in a
/// bad frame is shown like any other. Throws what the component throws.
ClockOutcome LeggeDataOra(Contenitore& window);

/// Every second: reads the clock of the terminal that was prepared last, by the model that it had
/// then, whatever is selected now. Only serial terminals, and nothing before the first command.
void Timer1_Timer(Contenitore& window);

}  // namespace orlo
