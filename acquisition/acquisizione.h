#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// How an acquisition ended. Done means: the last memory status came in a good frame and showed
/// nothing left to acquire, and nothing failed for good on the way.
struct AcquisitionOutcome {
    bool done = false;
    /// Why not, in Italian; empty when done.
    QString reason;
    /// Punches written into the file.
    int punches = 0;
};

/// Empties the selected terminal's punch memory into the file named in NomeFile.
AcquisitionOutcome cmdAcquisisce_Click(Contenitore& window);

/// The same for the terminal of the current-terminal block, which PrepareCurrentTerminal has filled
/// with success: counts, opens the file, acquires.
AcquisitionOutcome Acquisizione(Contenitore& window);

}  // namespace orlo
