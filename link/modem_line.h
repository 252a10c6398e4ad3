#pragma once

#include "link/waits.h"
#include "link/workstation.h"

#include <string>
#include <string_view>

namespace orlo
{

/// Throws away what is waiting, then sends. Does nothing while the port is closed.
void ModemSend(SerialPortControl& port, std::string_view text);

/// One line up to its CR, without it, or the empty text when the time is over.
///
/// `line_receive_buffer` holds what has arrived and was not yet returned; it survives between calls
/// and is never cleared. A LF becomes a blank, so the LF of a CR LF pair begins the next line.
/// `timeout_tenths` is divided by 10 in place (nearest, half to even) on every call: callers that
/// read again with the same variable wait ten times shorter each time, 30 being 3 s, then 0. With 0
/// a line that is already complete is still returned unless the clock changes first.
std::string ModemReadLine(Workstation& workstation, SerialPortControl& port,
                          std::string& line_receive_buffer, std::int16_t& timeout_tenths);

/// The same under the watch of a wait that is longer than one read.
std::string ModemReadLine(Workstation& workstation, SerialPortControl& port,
                          std::string& line_receive_buffer, std::int16_t& timeout_tenths,
                          WaitWatch& watch);

}  // namespace orlo
