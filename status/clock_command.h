#pragma once

#include "link/protocol_component.h"
#include "registry/contenitore.h"

#include <functional>

namespace orlo
{

/// How reading or setting a clock ended.
struct ClockOutcome {
    bool done = false;
    /// Why not, in Italian; empty when done.
    QString reason;
};

ClockOutcome ClockNotDone(const QString& reason);

/// The frame of the clock's buttons: prepares the selected terminal, does the work, and survives
/// what the component throws.
ClockOutcome DoClockCommand(Contenitore& window, const std::function<ClockOutcome()>& work);

/// Tells the operator why the component refused, in a message box, and returns that text.
QString TellClockError(Contenitore& window, component::TimeData& time);

}  // namespace orlo
