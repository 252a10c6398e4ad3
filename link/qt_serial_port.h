#pragma once

#include "link/line_trace.h"
#include "link/serial_port_control.h"

#include <QSerialPort>
#include <QString>

#include <array>

namespace orlo
{

/// The devices that stand for COM1..COM4.
using PortDevices = std::array<QString, 4>;

/// A port over Qt's serial port library.
///
/// Facts about that library that this class lives with: without an event loop nothing arrives until
/// it is waited for and nothing leaves until it is flushed; it excludes other programs by a lock
/// file only, so a flock is taken besides; a device that is withdrawn shows as a read error with a
/// misleading text, so any error after opening means that the line is lost; under RTS/CTS
/// handshaking it refuses to move RTS, so that line and DTR are moved past it.
class QtSerialPort : public SerialPortControl
{
public:
    QtSerialPort(const PortDevices& devices, LineTrace& trace);
    ~QtSerialPort() override;
    QtSerialPort(const QtSerialPort&) = delete;
    QtSerialPort& operator=(const QtSerialPort&) = delete;

    int CommPort() const override { return comm_port_; }
    bool SetCommPort(int port) override;
    std::string Settings() const override;
    bool SetSettings(std::string_view settings) override;
    bool PortOpen() const override { return port_.isOpen(); }
    bool SetPortOpen(bool open) override;
    int Handshaking() const override { return handshaking_; }
    bool SetHandshaking(int handshaking) override;
    bool SetRTSEnable(bool on) override;
    bool SetDTREnable(bool on) override;
    std::string LineError() const override { return line_error_; }
    std::size_t InBufferCount() override;
    void DiscardInput() override;
    std::string Input() override;
    void Output(std::string_view bytes) override;
    void WaitForInput(std::chrono::milliseconds longest) override;
    bool LineLost() const override { return line_lost_ || !port_.isOpen(); }

private:
    bool Open();
    bool OpenDevice();
    bool Refuse(const QString& reason);
    bool SetModemLine(int line, const char* name, bool on);
    bool RefuseLine(const QString& property, const QString& reason);

    const PortDevices& devices_;
    LineTrace& trace_;
    QSerialPort port_;
    int comm_port_ = 1;
    int speed_ = 9600;
    int handshaking_ = kNoHandshaking;
    std::string line_error_;
    bool line_lost_ = false;
};

}  // namespace orlo
