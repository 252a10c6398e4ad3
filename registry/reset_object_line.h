#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// Drops and raises DTR on the line of an Orlo that was talked to, modem or not. Calls the
/// component: to be guarded.
void ResetObjectLine(Contenitore& window);

}  // namespace orlo
