#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// Behind a command: the modem of an Orlo hangs up, as a line costs money; that of a Sipa is not
/// pulsed. False, with the reason in PannelloComunicazione, when the pulse failed.
bool HangUpBehindCommand(Contenitore& window);

}  // namespace orlo
