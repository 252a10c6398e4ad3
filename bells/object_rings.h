#pragma once

#include "registry/contenitore.h"

#include <functional>

namespace orlo
{

// The bell week of an Orlo or a Sipa, through the protocol component. The terminal must have been
// prepared. Progress is shown in the main window's percentage, failed attempts in
// PannelloTentativi; the outcome is told in a message box and returned.

/// Asks for the rings of one day, 0..6, once. True when they are in the component.
bool GetRings(Contenitore& window, int day);

/// Clears RingTable, that of all terminals, says so through `cleared` and reads the seven days into
/// it. The number of rings that are there: kRingSlots, or fewer when a day failed.
int LeggeSuonerie(Contenitore& window, const std::function<void()>& cleared);

/// Sends the 168 rings, empty slots included, so that the terminal's whole week is overwritten.
/// False when a ring failed: those before it are in the terminal.
bool TrasmetteSuonerie(Contenitore& window);

}  // namespace orlo
