#include "registry/held_line.h"

#include "link/serial_port_link.h"
#include "registry/contenitore_controls.h"

namespace orlo
{

bool AnotherLineIsOpen(Contenitore& window, int port)
{
    const int held = window.State().SessionPort;
    if (!window.LineIsOpen() || held == port) return false;
    window.Controls().PannelloComunicazione->setText(
        QStringLiteral("Errore: è collegata la linea della COM %1, non quella di questo terminale.")
            .arg(held));
    return true;
}

bool HoldsTheComponentsPort(Contenitore& window)
{
    if (!window.LineIsOpen()) return false;
    window.Controls().PannelloComunicazione->setText(
        QStringLiteral("Errore: la COM %1 è collegata. Premere Log-off.")
            .arg(window.State().SessionPort));
    return true;
}

SerialPortControl* HeldLine(Contenitore& window)
{
    const int current = window.State().CurrentPort;
    if (AnotherLineIsOpen(window, current)) return nullptr;
    SerialPortControl* const port = window.Station().Comm(current);
    // That its device was withdrawn shows only when the port is looked into.
    if (port != nullptr && port->InBufferCount() == 0 && port->LineLost()) {
        window.Controls().PannelloComunicazione->setText(LostLineText(window));
        return nullptr;
    }
    return port;
}

QString LostLineText(const Contenitore& window)
{
    return window.LineIsOpen() ? QStringLiteral("Errore: la linea è caduta. Premere Log-off.")
                               : QStringLiteral("Errore: la linea è caduta.");
}

void ClosePortLeftOpen(Contenitore& window)
{
    if (window.LineIsOpen()) return;
    for (SerialPortControl* const port : window.Station().ports)
        if (port != nullptr && port->PortOpen()) static_cast<void>(CloseSerialPort(*port));
}

}  // namespace orlo
