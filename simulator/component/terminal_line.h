#pragma once

#include "simulator/component/serial_device.h"
#include "simulator/object_frame.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orlo::simulator
{

/// Failures that the terminal had no part in.
inline constexpr const char* kTimeOut = "99,Time Out";
inline constexpr const char* kWrongAnswer = "97,Risposta errata";
inline constexpr const char* kTooLong = "97,Telegramma troppo lungo";

/// What came of a request.
struct Outcome {
    std::string code;               // of the failure; empty when there was none
    std::vector<std::string> data;  // of the answer

    bool Done() const { return code.empty(); }
};

/// The line over which all objects of the component work: one of four devices, requests and their
/// answers, and raw strings for a modem. Nothing throws but for want of memory.
class TerminalLine
{
public:
    /// `devices`: names of COM1..COM4; none may be known.
    explicit TerminalLine(std::array<std::string, 4> devices) : devices_(std::move(devices)) {}

    void Open(std::int16_t port, std::int32_t bits_per_second);
    void Close();
    void SetDtr(bool raised) { device_.SetDtr(raised); }

    void SendString(std::string_view text);
    /// What has arrived, `longest` characters at most. Waits until something is there, or, with a
    /// `terminator`, until one of those came or as much as is wanted, `patience` at the most.
    std::string ReceiveString(std::size_t longest, std::chrono::milliseconds patience,
                              char terminator = '\0');

    /// Asks the terminal and waits for its answer, two seconds in all. A request that went unheard
    /// is not repeated: the caller counts the attempts.
    Outcome Exchange(std::int16_t terminal, std::int16_t priority, std::vector<std::string> fields);

private:
    void DropEcho();
    std::optional<std::string> WhyNotOpen(std::int16_t port, std::int32_t bits_per_second);
    std::optional<ObjectMessage> WaitForAnswer(const ObjectMessage& request,
                                               SerialDevice::Deadline deadline);
    /// The code of a failure of the line itself.
    std::string LineCode();

    std::array<std::string, 4> devices_;
    SerialDevice device_;
    std::string port_;                         // "COM2"
    std::string closed_ = "Linea non aperta";  // why, while the device is not open
    std::string pending_;                      // arrived and not handed out
    std::string echo_;                         // sent by SendString, may come back
    std::uint8_t sequence_ = 0;
};

}  // namespace orlo::simulator
