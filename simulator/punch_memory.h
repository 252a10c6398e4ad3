#pragma once

#include "simulator/punch.h"

#include <cstddef>
#include <span>
#include <vector>

namespace orlo::simulator
{

/// The punches of a terminal, oldest first. Acquired ones stay in memory.
///
/// A punch counts as acquired only when its reader has acknowledged it, never because it was
/// handed over: between the two it is still to acquire.
class PunchMemory
{
public:
    /// `acquired`: how many of the oldest are acquired already, at most all.
    PunchMemory(std::vector<Punch> punches, std::size_t acquired);

    std::size_t Held() const { return punches_.size(); }
    std::size_t Acquired() const { return acquired_; }
    std::size_t ToAcquire() const { return punches_.size() - acquired_; }

    /// Hands over the oldest punches still to acquire, `most` at the most. Asked again without an
    /// acknowledgement it begins with the same punch.
    std::span<const Punch> HandOver(std::size_t most);

    /// The punches handed over last are acquired now; none when nothing is outstanding.
    void Acknowledge();

    /// Block `index` of ten as a reader lists them: newest first, so that the punches still to
    /// acquire are the first of the list. Empty beyond the oldest.
    std::vector<Punch> Block(std::size_t index) const;

private:
    std::vector<Punch> punches_;
    std::size_t acquired_;
    std::size_t outstanding_ = 0;  // handed over and not acknowledged
};

}  // namespace orlo::simulator
