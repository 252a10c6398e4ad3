#include "link/qt_serial_port.h"

#include "link/line_speed.h"
#include "link/serial_port_link.h"

#include <sys/file.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <thread>

namespace orlo
{

namespace
{

constexpr std::string_view kLineFormat = ",n,8,1";
constexpr int kSendMilliseconds = 2000;
constexpr std::chrono::milliseconds kLockFileRemoval{20};

/// The speed in "SPEED,n,8,1", or 0 when the text has another shape.
int SpeedOf(std::string_view settings)
{
    if (!settings.ends_with(kLineFormat)) return 0;
    const std::string_view digits = settings.substr(0, settings.size() - kLineFormat.size());
    int speed = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), speed);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole ? speed : 0;
}

}  // namespace

QtSerialPort::QtSerialPort(const PortDevices& devices, LineTrace& trace)
    : devices_(devices), trace_(trace)
{
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) {
                         const bool harmless =
                             error == QSerialPort::NoError || error == QSerialPort::TimeoutError;
                         if (!harmless && port_.isOpen()) line_lost_ = true;
                     });
}

QtSerialPort::~QtSerialPort()
{
    port_.close();
}

bool QtSerialPort::SetCommPort(int port)
{
    if (PortOpen() || port < 1 || port > static_cast<int>(devices_.size())) return false;
    comm_port_ = port;
    return true;
}

std::string QtSerialPort::Settings() const
{
    return SettingsText(speed_);
}

bool QtSerialPort::SetSettings(std::string_view settings)
{
    const int speed = SpeedOf(settings);
    if (speed <= 0) return false;
    speed_ = speed;
    return true;
}

bool QtSerialPort::SetPortOpen(bool open)
{
    if (open) return !PortOpen() && Open();
    const bool was_open = PortOpen();
    // What a modem that holds CTS back has not taken would keep the system waiting in the close.
    if (was_open && handshaking_ != kNoHandshaking) port_.clear(QSerialPort::Output);
    if (was_open) port_.close();
    handshaking_ = kNoHandshaking;
    line_lost_ = false;
    return was_open;
}

bool QtSerialPort::SetHandshaking(int handshaking)
{
    const QString property = QStringLiteral("Handshaking");
    if (handshaking != kNoHandshaking && handshaking != kRtsCtsHandshaking)
        return RefuseLine(property, QStringLiteral("valore %1 non previsto").arg(handshaking));
    if (!PortOpen()) return RefuseLine(property, QStringLiteral("la porta è chiusa"));
    const bool taken =
        port_.setFlowControl(handshaking == kRtsCtsHandshaking ? QSerialPort::HardwareControl
                                                               : QSerialPort::NoFlowControl);
    if (!taken) return RefuseLine(property, port_.errorString());
    handshaking_ = handshaking;
    line_error_.clear();
    return true;
}

bool QtSerialPort::SetRTSEnable(bool on)
{
    return SetModemLine(TIOCM_RTS, "RTS", on);
}

bool QtSerialPort::SetDTREnable(bool on)
{
    return SetModemLine(TIOCM_DTR, "DTR", on);
}

bool QtSerialPort::SetModemLine(int line, const char* name, bool on)
{
    const QString property = QLatin1String(name);
    if (!PortOpen()) return RefuseLine(property, QStringLiteral("la porta è chiusa"));
    line_error_.clear();
    if (ioctl(port_.handle(), on ? TIOCMBIS : TIOCMBIC, &line) == 0) return true;
    const int error = errno;
    const bool has_no_lines = error == ENOTTY || error == EINVAL;
    if (!has_no_lines) return RefuseLine(property, qt_error_string(error));
    trace_.Note(QStringLiteral("COM%1: la porta non ha la linea %2")
                    .arg(QString::number(comm_port_), property));
    return true;
}

bool QtSerialPort::RefuseLine(const QString& property, const QString& reason)
{
    const QString text = property + QStringLiteral(": ") + reason;
    line_error_ = text.toStdString();
    trace_.Note(QStringLiteral("COM%1, %2").arg(QString::number(comm_port_), text));
    return false;
}

bool QtSerialPort::Open()
{
    port_.setPortName(devices_[static_cast<std::size_t>(comm_port_ - 1)]);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!OpenDevice()) return Refuse(port_.errorString());
    if (flock(port_.handle(), LOCK_EX | LOCK_NB) != 0)
        return Refuse(QStringLiteral("la porta è usata da un altro programma"));
    if (!SetLineSpeed(port_.handle(), speed_))
        return Refuse(QStringLiteral("velocità %1 non accettata").arg(speed_));
    line_lost_ = false;
    return true;
}

/// Tries once more: a program that has just closed the device removes its lock file a moment later.
bool QtSerialPort::OpenDevice()
{
    if (port_.open(QIODevice::ReadWrite)) return true;
    if (port_.error() != QSerialPort::PermissionError) return false;
    std::this_thread::sleep_for(kLockFileRemoval);
    return port_.open(QIODevice::ReadWrite);
}

bool QtSerialPort::Refuse(const QString& reason)
{
    trace_.Note(QStringLiteral("COM%1 (%2) non aperta: %3")
                    .arg(QString::number(comm_port_), port_.portName(), reason));
    if (port_.isOpen()) port_.close();
    return false;
}

std::size_t QtSerialPort::InBufferCount()
{
    if (PortOpen() && port_.bytesAvailable() == 0) port_.waitForReadyRead(0);
    return static_cast<std::size_t>(port_.bytesAvailable());
}

void QtSerialPort::DiscardInput()
{
    while (InBufferCount() > 0) Input();
}

std::string QtSerialPort::Input()
{
    if (InBufferCount() == 0) return {};
    const QByteArray bytes = port_.readAll();
    trace_.Received(comm_port_, {bytes.data(), static_cast<std::size_t>(bytes.size())});
    return bytes.toStdString();
}

void QtSerialPort::Output(std::string_view bytes)
{
    if (!PortOpen() || line_lost_) return;
    trace_.Sent(comm_port_, bytes);
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    port_.flush();
    if (port_.bytesToWrite() > 0 && !port_.waitForBytesWritten(kSendMilliseconds))
        port_.clear(QSerialPort::Output);
}

void QtSerialPort::WaitForInput(std::chrono::milliseconds longest)
{
    if (PortOpen() && !line_lost_) port_.waitForReadyRead(static_cast<int>(longest.count()));
}

}  // namespace orlo
