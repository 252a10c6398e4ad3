#pragma once

#include "simulator/line_pace.h"

#include <optional>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// What is behind a serial port: a line with its terminals, or a modem.
class FarEnd
{
public:
    virtual ~FarEnd() = default;

    /// Takes bytes that were put on the line at `now`, or none when only time has passed. Returns
    /// what they bring about, ordered by time.
    virtual std::vector<LineEvent> Receive(std::string_view bytes, Instant now) = 0;

    /// When it wants to be given the time again, whether or not bytes come.
    virtual std::optional<Instant> WakeAt() const { return std::nullopt; }

    /// The line was lost.
    virtual void HangUp() = 0;

    /// The program closed the port; with a modem that is the line DTR going off.
    virtual void PortClosed() {}
};

}  // namespace orlo::simulator
