#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// A serial device held by this process alone: 8 bits, no parity, one stop bit, no flow control.
/// Nothing throws. A device that is gone, or was never opened, takes and brings nothing.
class SerialDevice
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    SerialDevice() = default;
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;
    ~SerialDevice() { Close(); }

    /// What was open before is closed, which a modem is given time to notice. Nothing when it
    /// succeeds, else the reason.
    std::optional<std::string> Open(const std::string& name, int bits_per_second);
    void Close();

    bool IsOpen() const { return descriptor_ >= 0; }

    /// A line that fell stays down for as long as a modem needs to notice. A pseudo-terminal has no
    /// such line.
    void SetDtr(bool raised);

    /// All of it by the deadline; false otherwise.
    [[nodiscard]] bool Write(std::string_view bytes, Deadline deadline);

    /// What has arrived, waiting for the first of it until the deadline. Empty when nothing came.
    std::string Read(Deadline deadline);

    /// Forgets what has arrived.
    void Discard() const;

private:
    /// False at the deadline.
    bool Wait(short events, Deadline deadline) const;

    int descriptor_ = -1;
    Deadline dtr_falls_until_{};  ///< not raised before
};

}  // namespace orlo::simulator
