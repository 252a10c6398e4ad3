#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// How setting a clock ended. Done means: the terminal answered in a good frame.
struct ClockSetting {
    bool done = false;
    /// Why not, in Italian; empty when done.
    QString reason;
};

/// Sets the selected terminal's clock from the PC's.
ClockSetting cmdSincro_Click(Contenitore& window);

/// The same for the prepared terminal.
ClockSetting Sicronizzazione(Contenitore& window);

}  // namespace orlo
