#pragma once

#include "registry/contenitore.h"

namespace orlo
{

//  Down  --LogIn_Click, connected-->  Up    `Verde` shows, SessionPort is open and kept so
//  Up    --LogOff_Click------------>  Down  `Rosso` shows, the port is closed
//  Up    --LogIn_Click------------->  Up or Down: the port is opened anew, the number dialled again
//
// Every serial command uses the open line while it is up, see PortSession.

/// Opens the line of the selected terminal: its port, and over it a call when CheckModem is ticked.
/// The result is in PannelloComunicazione and the lights. With a line open on another port it says
/// so and does nothing.
void LogIn_Click(Contenitore& window);

/// Hangs up and closes the line that is open. With a terminal of another port selected it says so
/// and does nothing.
void LogOff_Click(Contenitore& window);

/// The same for a program that ends the session by itself, whatever terminal is selected; nothing
/// when no line is open.
void EndSession(Contenitore& window);

}  // namespace orlo
