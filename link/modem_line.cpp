#include "link/modem_line.h"

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

constexpr char kLf = 10;
constexpr char kCr = 13;

/// Tenths to seconds, to the nearest, half to even.
std::int16_t Seconds(std::int16_t tenths)
{
    return static_cast<std::int16_t>(std::nearbyint(tenths / 10.0));
}

std::chrono::milliseconds OneStep()
{
    return std::chrono::milliseconds(std::llround(std::ceil(kClockStepSeconds * 1000)));
}

}  // namespace

void ModemSend(SerialPortControl& port, std::string_view text)
{
    if (!port.PortOpen()) return;
    port.DiscardInput();
    port.Output(text);
}

std::string ModemReadLine(Workstation& workstation, SerialPortControl& port,
                          std::string& line_receive_buffer, std::int16_t& timeout_tenths)
{
    OverdueWait overdue(workstation, Seconds(timeout_tenths));
    return ModemReadLine(workstation, port, line_receive_buffer, timeout_tenths, overdue);
}

std::string ModemReadLine(Workstation& workstation, SerialPortControl& port,
                          std::string& line_receive_buffer, std::int16_t& timeout_tenths,
                          WaitWatch& watch)
{
    timeout_tenths = Seconds(timeout_tenths);
    const std::int16_t timeout_seconds = timeout_tenths;
    const float start = StartOfWait(workstation.clock);
    for (;;) {
        if (port.InBufferCount() >= 1) line_receive_buffer += port.Input();
        std::replace(line_receive_buffer.begin(), line_receive_buffer.end(), kLf, ' ');
        const std::size_t end = line_receive_buffer.find(kCr);
        // The time is judged first: a line found in a pass that is too late stays in the buffer.
        const bool late =
            ElapsedSeconds(workstation.clock, start) > static_cast<float>(timeout_seconds);
        if (late || watch.Aborted()) return {};
        if (end != std::string::npos) {
            std::string line = line_receive_buffer.substr(0, end);
            line_receive_buffer.erase(0, end + 1);
            return line;
        }
        if (port.LineLost()) return {};
        workstation.clock.SleepUntilInput(port, OneStep());
    }
}

}  // namespace orlo
