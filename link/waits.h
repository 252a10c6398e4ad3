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

/// Watches over a wait in monotonic time: from `first_look` on the Escape key is looked at once a
/// second, and with no operator present the wait ends by itself at `own_end`. Both are counted from
/// now.
class WaitWatch
{
public:
    WaitWatch(Workstation& workstation, std::chrono::milliseconds first_look,
              std::chrono::milliseconds own_end);

    /// To be asked on every pass of the wait; true ends it as if its time were over, and stays.
    [[nodiscard]] bool Aborted();

private:
    bool Look(std::chrono::milliseconds now);

    Workstation& workstation_;
    std::chrono::milliseconds next_look_;
    std::chrono::milliseconds own_end_;
    bool aborted_ = false;
};

/// The watch over a wait that ought to end by itself: it interferes when ten seconds have passed
/// beyond the target, as in a wait that spans midnight.
class OverdueWait : public WaitWatch
{
public:
    OverdueWait(Workstation& workstation, double target_seconds);
};

}  // namespace orlo
