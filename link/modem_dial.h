#pragma once

#include "link/workstation.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orlo
{

/// How dialling ended.
enum DialResult : std::int16_t {
    kConnect = 0,
    kNoCarrier = 1,
    kNoDialTone = 2,
    kBusy = 3,
    /// No "OK" to an "AT" or to the initialisation, or a property of the port was refused: only
    /// then the port's LineError is not empty.
    kModemInitError = 4,
    /// None of the four results before the time was over, or the wait was aborted.
    kNotConnected = 5,
};

/// Makes the Hayes modem at an open port dial, some 20 seconds of pauses and up to 250 seconds of
/// waiting. An empty `initialisation` stands for "ATZQ0E0V1X1". A `number` that contains "ATD" is
/// the dial command as it stands; any other gets "ATD" in front.
[[nodiscard]] DialResult ModemDial(Workstation& workstation, SerialPortControl& port,
                                   std::string& line_receive_buffer,
                                   std::string_view initialisation, std::string_view number);

/// Calls the modem back to its command mode and makes it hang up, 8.5 seconds of pauses. Nothing is
/// waited for: the port is about to be closed, whatever comes.
void ModemHangUp(Workstation& workstation, SerialPortControl& port);

}  // namespace orlo
