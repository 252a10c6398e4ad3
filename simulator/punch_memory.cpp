#include "simulator/punch_memory.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kBlockPunches = 10;

}  // namespace

PunchMemory::PunchMemory(std::vector<Punch> punches, std::size_t acquired)
    : punches_(std::move(punches)), acquired_(acquired)
{
    assert(acquired_ <= punches_.size());
}

std::span<const Punch> PunchMemory::HandOver(std::size_t most)
{
    outstanding_ = std::min(most, ToAcquire());
    return std::span(punches_).subspan(acquired_, outstanding_);
}

void PunchMemory::Acknowledge()
{
    acquired_ += outstanding_;
    outstanding_ = 0;
}

std::vector<Punch> PunchMemory::Block(std::size_t index) const
{
    const std::size_t skipped = std::min(index * kBlockPunches, punches_.size());
    const std::size_t taken = std::min(kBlockPunches, punches_.size() - skipped);
    const auto newest = punches_.rbegin() + static_cast<std::ptrdiff_t>(skipped);
    return {newest, newest + static_cast<std::ptrdiff_t>(taken)};
}

}  // namespace orlo::simulator
