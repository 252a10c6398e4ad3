#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace orlo
{

/// Values of the property Handshaking.
inline constexpr int kNoHandshaking = 0;
inline constexpr int kRtsCtsHandshaking = 2;

/// One of the four serial ports of the PC, COM1 to COM4. The text that goes through it is bytes:
/// a character is one byte, whatever its value. Every setter tells whether it succeeded; none
/// throws.
class SerialPortControl
{
public:
    virtual ~SerialPortControl() = default;

    virtual int CommPort() const = 0;
    /// Port number 1..4. False for any other number and while the port is open.
    [[nodiscard]] virtual bool SetCommPort(int port) = 0;

    virtual std::string Settings() const = 0;
    /// "SPEED,n,8,1", e.g. "9600,n,8,1". False when the text has another shape.
    [[nodiscard]] virtual bool SetSettings(std::string_view settings) = 0;

    virtual bool PortOpen() const = 0;
    /// Opens with CommPort and Settings, or closes. False when the device is missing, in use by
    /// another program, or does not accept the speed; the port is then closed.
    [[nodiscard]] virtual bool SetPortOpen(bool open) = 0;

    /// Flow control of the open port: 0 none, 2 RTS/CTS; any other is refused. It lasts until the
    /// port is closed: every opening begins with none, as a direct cable has no CTS.
    virtual int Handshaking() const = 0;
    [[nodiscard]] virtual bool SetHandshaking(int handshaking) = 0;

    /// The lines RTS and DTR of the open port. A device that has no such lines, as a
    /// pseudo-terminal, does not fail for want of them.
    [[nodiscard]] virtual bool SetRTSEnable(bool on) = 0;
    [[nodiscard]] virtual bool SetDTREnable(bool on) = 0;

    /// Why the last of these three was refused, in the system's words; empty when it was not.
    virtual std::string LineError() const = 0;

    /// Bytes that have arrived and have not been read.
    virtual std::size_t InBufferCount() = 0;
    virtual void DiscardInput() = 0;

    /// Takes everything that has arrived.
    virtual std::string Input() = 0;
    /// Sends; returns when the bytes are with the operating system.
    virtual void Output(std::string_view bytes) = 0;

    /// Sleeps until a byte can be read, the line is lost, or the time is over.
    virtual void WaitForInput(std::chrono::milliseconds longest) = 0;
    /// True while nothing can arrive: the port is closed, or its device was withdrawn (an unplugged
    /// adapter) since it was opened.
    virtual bool LineLost() const = 0;
};

}  // namespace orlo
