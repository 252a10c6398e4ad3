#pragma once

#include "link/clock.h"
#include "link/escape_key.h"
#include "link/line_trace.h"
#include "link/operator_dialog.h"
#include "link/serial_port_control.h"

#include <array>
#include <chrono>

namespace orlo
{

/// The PC as the procedures see it: its clock, its serial ports, its Escape key, its operator.
/// Made once by the program, or by a test out of parts of its own, and handed down by reference.
struct Workstation {
    Clock& clock;
    OperatorDialog& dialog;
    EscapeKey& escape;
    LineTrace& trace;
    /// The controls of COM1..COM4, in this order.
    std::array<SerialPortControl*, 4> ports{};
    /// What runs was asked for by nobody: waits that overrun end by themselves and let no window
    /// events in.
    bool unasked = false;
    /// The port over which the answer to a request that nobody asked for may still come, as the
    /// line was listened to only briefly when it was given up; and until when, on the monotonic
    /// clock.
    struct {
        const SerialPortControl* port = nullptr;
        std::chrono::milliseconds until{0};
    } unasked_answer{};

    /// The control of port 1..4, or nullptr for any other number.
    SerialPortControl* Comm(int port) const
    {
        if (port < 1 || port > static_cast<int>(ports.size())) return nullptr;
        return ports[static_cast<std::size_t>(port - 1)];
    }
};

}  // namespace orlo
