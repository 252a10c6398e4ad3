#include "simulator/object_records.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace orlo::simulator
{

namespace
{

std::size_t IndexOf(int number)
{
    return static_cast<std::size_t>(number) - 1;
}

}  // namespace

ObjectRecords::ObjectRecords(std::vector<ObjectPunch> punches, std::size_t marked)
    : punches_(std::move(punches)), marked_(punches_.size())
{
    assert(marked <= punches_.size());
    std::fill_n(marked_.begin(), marked, true);
}

std::size_t ObjectRecords::Marked() const
{
    return static_cast<std::size_t>(std::count(marked_.begin(), marked_.end(), true));
}

bool ObjectRecords::Has(int number) const
{
    return number >= 1 && IndexOf(number) < punches_.size();
}

const ObjectPunch& ObjectRecords::At(int number) const
{
    return punches_.at(IndexOf(number));
}

bool ObjectRecords::IsMarked(int number) const
{
    return marked_.at(IndexOf(number));
}

void ObjectRecords::Mark(int number)
{
    marked_.at(IndexOf(number)) = true;
}

std::optional<int> ObjectRecords::NextUnmarked(int number) const
{
    for (int candidate = std::max(number, 1); Has(candidate); ++candidate)
        if (!IsMarked(candidate)) return candidate;
    return std::nullopt;
}

}  // namespace orlo::simulator
