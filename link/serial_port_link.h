#pragma once

#include "link/serial_port_control.h"

#include <string>
#include <string_view>

namespace orlo
{

/// The settings text of a speed in bit/s: 9600 gives "9600,n,8,1".
std::string SettingsText(int speed);

/// Sets the port number and the settings and opens. False when any of the three fails.
[[nodiscard]] bool OpenSerialPort(SerialPortControl& control, int port, std::string_view settings);

/// Closes. True when closing succeeded: whoever keeps the result in a flag called "open" keeps the
/// success of the last port operation, not the state of the port.
[[nodiscard]] bool CloseSerialPort(SerialPortControl& control);

}  // namespace orlo
