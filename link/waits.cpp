#include "link/waits.h"

#include "link/pressione_tasto_esc.h"

#include <cmath>

namespace orlo
{

namespace
{

constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::seconds kBetweenLooks{1};

std::chrono::milliseconds Milliseconds(double seconds)
{
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

}  // namespace

float StartOfWait(Clock& clock)
{
    return static_cast<float>(clock.SecondsSinceMidnight());
}

float ElapsedSeconds(Clock& clock, float start)
{
    const float elapsed = static_cast<float>(clock.SecondsSinceMidnight()) - start;
    return elapsed < 0 ? 0 : elapsed;
}

void WaitTenths(Workstation& workstation, std::int16_t tenths)
{
    const auto seconds = static_cast<float>(tenths / 10.0);
    const float start = StartOfWait(workstation.clock);
    OverdueWait overdue(workstation, seconds);
    while (ElapsedSeconds(workstation.clock, start) < seconds && !overdue.Aborted())
        workstation.clock.YieldToEventLoop();
}

void WaitDelay(Workstation& workstation, float delay_seconds)
{
    if (delay_seconds == 0) return;
    // nearbyint rounds half to even in the default rounding mode.
    const double now = workstation.clock.SecondsSinceMidnight();
    const auto target = static_cast<std::int32_t>(std::nearbyint(now + delay_seconds));
    OverdueWait overdue(workstation, target - now);
    while (workstation.clock.SecondsSinceMidnight() < target && !overdue.Aborted())
        workstation.clock.YieldToEventLoop();
}

WaitWatch::WaitWatch(Workstation& workstation, std::chrono::milliseconds first_look,
                     std::chrono::milliseconds own_end)
    : workstation_(workstation),
      next_look_(workstation.clock.Monotonic() + first_look),
      own_end_(workstation.clock.Monotonic() + own_end)
{
}

bool WaitWatch::Aborted()
{
    const std::chrono::milliseconds now = workstation_.clock.Monotonic();
    aborted_ = aborted_ || (now >= next_look_ && Look(now));
    return aborted_;
}

bool WaitWatch::Look(std::chrono::milliseconds now)
{
    const bool alone = workstation_.unasked || !workstation_.dialog.OperatorPresent();
    if (now >= own_end_ && alone) return true;
    next_look_ = now + kBetweenLooks;
    return PressioneTastoEsc(workstation_);
}

OverdueWait::OverdueWait(Workstation& workstation, double target_seconds)
    : WaitWatch(workstation, Milliseconds(target_seconds) + kPatience,
                Milliseconds(target_seconds) + kPatience)
{
}

}  // namespace orlo
