#include "link/modem_wait.h"

#include "link/modem_line.h"

#include <algorithm>
#include <optional>
#include <span>

namespace orlo
{

namespace
{

/// Of A to Z only, whatever the locale: the texts of modems are ASCII.
std::string UpperCased(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

/// Position of the first text, in their order, that the line holds.
std::optional<std::size_t> FirstTextIn(const std::string& line,
                                       std::span<const std::string_view> expected)
{
    const std::string upper = UpperCased(line);
    const auto found =
        std::find_if(expected.begin(), expected.end(), [&upper](std::string_view text) {
            return upper.find(UpperCased(std::string(text))) != std::string::npos;
        });
    if (found == expected.end()) return std::nullopt;
    return static_cast<std::size_t>(found - expected.begin());
}

std::optional<std::size_t> WaitForTexts(Workstation& workstation, SerialPortControl& port,
                                        std::string& buffer,
                                        std::span<const std::string_view> expected,
                                        std::int16_t& timeout_tenths)
{
    // The first look is at once: Escape may have been pressed in the pause before.
    WaitWatch watch(workstation, std::chrono::milliseconds(0),
                    std::chrono::milliseconds(timeout_tenths * 100));
    for (;;) {
        const std::string line = ModemReadLine(workstation, port, buffer, timeout_tenths, watch);
        if (line.empty() && (buffer.empty() || watch.Aborted() || port.LineLost()))
            return std::nullopt;
        if (const auto found = FirstTextIn(line, expected)) return found;
    }
}

}  // namespace

bool ModemWaitFor(Workstation& workstation, SerialPortControl& port,
                  std::string& line_receive_buffer, std::string_view expected,
                  std::int16_t& timeout_tenths)
{
    return WaitForTexts(workstation, port, line_receive_buffer, {&expected, 1}, timeout_tenths)
        .has_value();
}

std::int16_t ModemWaitForAny(Workstation& workstation, SerialPortControl& port,
                             std::string& line_receive_buffer,
                             const std::array<std::string_view, 4>& expected,
                             std::int16_t& timeout_tenths)
{
    const auto found =
        WaitForTexts(workstation, port, line_receive_buffer, expected, timeout_tenths);
    return found ? static_cast<std::int16_t>(*found) : kNoModemAnswer;
}

}  // namespace orlo
