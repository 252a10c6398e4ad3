#pragma once

#include "link/workstation.h"

#include <chrono>

namespace orlo
{

/// Seconds-since-midnight reading as the waits keep it: in single precision.
float StartOfWait(Clock& clock);

/// Seconds from `start` to now. After midnight the difference is negative and the result is 0, not
/// the difference plus a day: a wait that spans midnight lasts until the clock reaches its start
/// again. Waits that would leave the operator before a frozen window are ended by OverdueWait.
float ElapsedSeconds(Clock& clock, float start);

/// Waits tenths / 10 seconds and lets window events run meanwhile.
void WaitTenths(Workstation& workstation, std::int16_t tenths);

/// The pause before talking to a terminal: until the whole second nearest (half to even) to now
/// plus `delay_seconds`. Window events run meanwhile. A delay of 0 returns at once.
void WaitDelay(Workstation& workstation, float delay_seconds);

/// Watches over a wait. When it has lasted ten seconds of monotonic time beyond its target, as one
/// that spans midnight does, the Escape key is looked at once a second; with no operator present
/// the wait ends by itself.
class OverdueWait
{
public:
    OverdueWait(Workstation& workstation, double target_seconds);

    /// To be asked on every pass of the wait; true ends it as if its time were over.
    [[nodiscard]] bool Aborted();

private:
    Workstation& workstation_;
    std::chrono::milliseconds next_look_;
};

}  // namespace orlo
