#include "simulator/escape_detector.h"

namespace orlo::simulator
{

namespace
{

constexpr Instant kGuardTime = std::chrono::seconds(1);
constexpr int kEscapePluses = 3;

}  // namespace

void EscapeDetector::Begin(Instant now)
{
    last_ = now;
    pluses_ = 0;
}

void EscapeDetector::Take(char byte, Instant now)
{
    const bool behind_silence = now - last_ >= kGuardTime;
    last_ = now;
    if (byte != '+')
        pluses_ = 0;
    else if (behind_silence)
        pluses_ = 1;
    else if (pluses_ > 0)
        // A fourth begins nothing: there was no silence before it.
        pluses_ = pluses_ == kEscapePluses ? 0 : pluses_ + 1;
}

std::optional<Instant> EscapeDetector::CompleteAt() const
{
    if (pluses_ != kEscapePluses) return std::nullopt;
    return last_ + kGuardTime;
}

}  // namespace orlo::simulator
