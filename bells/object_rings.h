#pragma once

#include "registry/contenitore.h"

#include <functional>

namespace orlo
{

// The bell week of an Orlo or a Sipa, through the protocol component. The terminal must have been
// prepared. Progress is shown in the main window's percentage, failed attempts in
// PannelloTentativi; the outcome is told in a message box and returned: true when all 168 rings
// have travelled. How many have is said through `ended` before the box, which must not stand above
// a window that shows what was before.

/// Asks for the rings of one day, 0..6, once. True when they are in the component.
bool GetRings(Contenitore& window, int day);

using RingsEnded = std::function<void(int rings)>;

/// Clears RingTable, that of all terminals, says so through `cleared` and reads the seven days into
/// it, up to a day that fails.
bool LeggeSuonerie(Contenitore& window, const std::function<void()>& cleared,
                   const RingsEnded& ended);

/// Sends the 168 rings, empty slots included, so that the terminal's whole week is overwritten. Of
/// those before a ring that fails the terminal has the new ones.
bool TrasmetteSuonerie(Contenitore& window, const RingsEnded& ended);

}  // namespace orlo
