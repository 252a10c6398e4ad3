#pragma once

#include "link/serial_port_control.h"

#include <QString>

namespace orlo
{

class Contenitore;

/// The port of the current terminal for the length of one serial command: opened at its beginning
/// and closed at its end, unless a modem session, shown by `Verde`, holds it open. Keeps
/// SerialPortOk.
class PortSession
{
public:
    /// A port that cannot be opened puts "Errore aprendo la COM" in PannelloComunicazione, an open
    /// line that cannot be used the reason, see HeldLine.
    explicit PortSession(Contenitore& window);
    ~PortSession();
    PortSession(const PortSession&) = delete;
    PortSession& operator=(const PortSession&) = delete;

    /// nullptr when the port could not be opened or the current port is none of 1..4.
    SerialPortControl* Port() const { return port_; }

    /// Why there is none: the caption, or that the terminal has no port, which has no caption.
    QString Refusal() const;

    /// The port is not closed at the end; the next operation closes it.
    void LeaveOpen() { opened_here_ = false; }

private:
    Contenitore& window_;
    SerialPortControl* port_ = nullptr;
    bool opened_here_ = false;
};

}  // namespace orlo
