#pragma once

#include "simulator/line_pace.h"

#include <optional>

namespace orlo::simulator
{

/// Finds the escape from data to commands in what a program sends: a second of silence, three "+"
/// with less than a second between them, a second of silence.
class EscapeDetector
{
public:
    /// Data begins at `now`: what was sent before was commands, and breaks the silence too.
    void Begin(Instant now);
    void Take(char byte, Instant now);

    /// When the escape is complete if nothing more comes until then.
    std::optional<Instant> CompleteAt() const;

private:
    Instant last_{0};
    int pluses_ = 0;
};

}  // namespace orlo::simulator
