#pragma once

#include "registry/contenitore.h"

#include <functional>

namespace orlo
{

/// Reads the selected terminal's badge layout into the window, then its clock by `read_clock`,
/// which is another feature's.
void cmdRiceveCard_Click(Contenitore& window, const std::function<void()>& read_clock);

/// Sends the badge layout of the window to the selected terminal.
void cmdTrasmetteCard_Click(Contenitore& window);

// The same for the prepared terminal, without the clock. Nothing is done for a type that is none.
// Both throw what the component throws.
void LeggeFormatoBadge(Contenitore& window);
void SpedisceFormatoBadge(Contenitore& window);

}  // namespace orlo
