#pragma once

#include "simulator/object_punch.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace orlo::simulator
{

/// The records of an Orlo or Sipa terminal, oldest first, numbered from 1. Marked ones stay in
/// memory, so that a number means the same record for ever.
class ObjectRecords
{
public:
    /// `marked`: how many of the oldest are marked already, at most all.
    ObjectRecords(std::vector<ObjectPunch> punches, std::size_t marked);

    std::size_t Held() const { return punches_.size(); }
    std::size_t Marked() const;

    bool Has(int number) const;
    /// REQUIRES: Has(number).
    const ObjectPunch& At(int number) const;
    bool IsMarked(int number) const;
    /// Marking a record twice is no mistake: the first answer may have been lost.
    void Mark(int number);

    /// The first record from `number` on that is not marked.
    std::optional<int> NextUnmarked(int number) const;

private:
    std::vector<ObjectPunch> punches_;
    std::vector<bool> marked_;
};

}  // namespace orlo::simulator
