#pragma once

#include "simulator/fault.h"

#include <chrono>
#include <optional>
#include <span>
#include <string>

namespace orlo::simulator
{

/// What leaves a terminal as its answer, after everything that went wrong with it.
struct Transmission {
    std::string bytes;
    std::chrono::milliseconds late{0};
    /// At least so long between two bytes, each by itself; 0 = no such pause.
    std::chrono::milliseconds byte_pause{0};
    /// The line is lost behind the bytes, for so long.
    std::optional<std::chrono::milliseconds> hang_up;
};

/// The answer framed and spoilt by the faults, the data first, then the frame, then
/// what surrounds it. A lost answer has no bytes. Faults
/// that concern the request or the number of records have done their work before and do nothing.
Transmission Transmit(int terminal, std::string data, std::span<const Fault> faults);

/// The same with a whole frame of any shape that ends in its check.
Transmission Transmit(std::string frame, std::span<const Fault> faults);

bool Has(std::span<const Fault> faults, FaultKind kind);

}  // namespace orlo::simulator
