#include "link/serial_port_link.h"

namespace orlo
{

std::string SettingsText(int speed)
{
    return std::to_string(speed) + ",n,8,1";
}

bool OpenSerialPort(SerialPortControl& control, int port, std::string_view settings)
{
    // A port that an earlier command left open (a link test without an answer does) is closed
    // first: the number and the settings can only be set while it is closed.
    if (control.PortOpen() && !control.SetPortOpen(false)) return false;
    return control.SetCommPort(port) && control.SetSettings(settings) && control.SetPortOpen(true);
}

bool CloseSerialPort(SerialPortControl& control)
{
    return control.SetPortOpen(false);
}

}  // namespace orlo
