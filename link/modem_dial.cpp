#include "link/modem_dial.h"

#include "link/modem_line.h"
#include "link/modem_wait.h"
#include "link/waits.h"

namespace orlo
{

namespace
{

/// Reset, result codes on, echo off, results in words, extended results.
constexpr std::string_view kUsualInitialisation = "ATZQ0E0V1X1";
constexpr std::string_view kDial = "ATD";
constexpr int kEscapeCharacters = 3;

static_assert(kNotConnected == kNoModemAnswer);

std::string DialCommand(std::string_view number)
{
    const bool is_command = number.find(kDial) != std::string_view::npos;
    return std::string(is_command ? "" : kDial).append(number);
}

/// One call, from the modem's lines to its result. All pauses and time-outs are tenths of a second.
class Dialogue
{
public:
    Dialogue(Workstation& workstation, SerialPortControl& port, std::string& buffer)
        : workstation_(workstation), port_(port), buffer_(buffer)
    {
    }

    bool RaiseLines();
    bool Initialise(std::string_view text);
    /// "AT" twice: the first may find the modem busy with setting itself to the line's speed.
    bool TwoAttentions() { return Attention() && Attention(); }
    DialResult Dial(std::string_view number);

private:
    bool Attention() { return Command("AT", 20, 30); }
    bool Command(std::string_view text, std::int16_t pause, std::int16_t timeout)
    {
        Send(text);
        WaitTenths(workstation_, pause);
        return ModemWaitFor(workstation_, port_, buffer_, "OK", timeout);
    }
    void Send(std::string_view text) { ModemSend(port_, std::string(text) + '\r'); }

    Workstation& workstation_;
    SerialPortControl& port_;
    std::string& buffer_;
};

bool Dialogue::RaiseLines()
{
    if (!port_.SetHandshaking(kRtsCtsHandshaking)) return false;
    WaitTenths(workstation_, 10);
    if (!port_.SetRTSEnable(false) || !port_.SetDTREnable(false)) return false;
    WaitTenths(workstation_, 20);
    if (!port_.SetRTSEnable(true) || !port_.SetDTREnable(true)) return false;
    WaitTenths(workstation_, 5);
    return true;
}

bool Dialogue::Initialise(std::string_view text)
{
    if (!text.empty()) return Command(text, 15, 100);
    if (!Command(kUsualInitialisation, 20, 100)) return false;
    WaitTenths(workstation_, 15);
    return true;
}

DialResult Dialogue::Dial(std::string_view number)
{
    WaitTenths(workstation_, 20);
    Send(DialCommand(number));
    std::int16_t timeout = 2500;
    const std::int16_t result = ModemWaitForAny(
        workstation_, port_, buffer_, {"CONNECT", "NO CARRIER", "NO DIAL TONE", "BUSY"}, timeout);
    WaitTenths(workstation_, 20);
    return static_cast<DialResult>(result);
}

}  // namespace

DialResult ModemDial(Workstation& workstation, SerialPortControl& port,
                     std::string& line_receive_buffer, std::string_view initialisation,
                     std::string_view number)
{
    Dialogue dialogue(workstation, port, line_receive_buffer);
    const bool ready = dialogue.RaiseLines() && dialogue.TwoAttentions() &&
                       dialogue.Initialise(initialisation) && dialogue.TwoAttentions();
    return ready ? dialogue.Dial(number) : kModemInitError;
}

void ModemHangUp(Workstation& workstation, SerialPortControl& port)
{
    for (int i = 0; i < kEscapeCharacters; ++i) {
        WaitTenths(workstation, 5);
        ModemSend(port, "+");
    }
    WaitTenths(workstation, 50);
    ModemSend(port, "ATH\r");
    WaitTenths(workstation, 20);
    // A refusal is in the trace; closing the port drops both lines in any case.
    static_cast<void>(port.SetRTSEnable(false));
    static_cast<void>(port.SetDTREnable(false));
}

}  // namespace orlo
