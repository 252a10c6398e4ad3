#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// The port that the open line, shown by `Verde`, offers to the current terminal. nullptr, with the
/// reason in PannelloComunicazione, when the line is another port's or was lost: then nothing may
/// be sent. Only to be asked while `Verde` shows.
SerialPortControl* HeldLine(Contenitore& window);

/// True, with the reason in PannelloComunicazione, when a line is open at all: on its port the
/// component, which opens ports itself, would write into the call.
[[nodiscard]] bool HoldsTheComponentsPort(Contenitore& window);

/// True, with the reason in PannelloComunicazione, when a line is open on another port than this.
[[nodiscard]] bool AnotherLineIsOpen(Contenitore& window, int port);

/// What is said of a line that was lost: while it is held, also what to do.
QString LostLineText(const Contenitore& window);

/// Closes what is open though no line is held: a link test without an answer leaves its port open
/// for the next operation to close, which may be one on another port.
void ClosePortLeftOpen(Contenitore& window);

}  // namespace orlo
