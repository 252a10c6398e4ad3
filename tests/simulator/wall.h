#pragma once

#include "simulator/line.h"
#include "simulator/terminal.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// Wednesday 15 March 2006, 08:30:00, and it stays so.
inline LocalClock StoppedClock()
{
    return [] {
        return std::chrono::local_days(std::chrono::year(2006) / std::chrono::March / 15) +
               std::chrono::hours(8) + std::chrono::minutes(30);
    };
}

/// A terminal on the wall with the settings of the text.
inline Terminal MakeTerminal(std::string_view settings)
{
    return {ParseTerminal(settings), StoppedClock()};
}

/// A request as a reader would send it, with a checksum of the test's own.
inline std::string RequestTo(int terminal, std::string_view command)
{
    std::string frame = "\x02";
    frame += static_cast<char>(128 + terminal);
    frame += command;
    unsigned sum = 0;
    for (const char c : frame) sum += static_cast<unsigned char>(c);
    frame += static_cast<char>(128 + sum % 128);
    return frame + "\r";
}

/// Everything that the events put on the line, in their order.
inline std::string BytesOf(const std::vector<LineEvent>& events)
{
    std::string bytes;
    for (const LineEvent& event : events) bytes += event.bytes;
    return bytes;
}

}  // namespace orlo::simulator
