#include "simulator/object_week.h"

#include "simulator/digits.h"

namespace orlo::simulator
{

std::optional<std::string> ObjectWeek::DayText(const std::string& day) const
{
    const int index = NumberOf(day).value_or(kDays);
    if (index >= kDays) return std::nullopt;
    std::string text;
    for (int number = 1; number <= kRingsADay; ++number) {
        const ObjectRing& ring = Ring(index, number);
        for (const int value : {ring.hour, ring.minute, ring.duration}) text += Digits(value, 2);
    }
    return text;
}

bool ObjectWeek::Put(std::span<const std::string> texts)
{
    constexpr std::array<int, 5> kLeast = {0, 1, 0, 0, 0};
    constexpr std::array<int, 5> kMost = {kDays - 1, kRingsADay, 23, 59, 10};
    std::array<int, 5> values{};
    if (texts.size() != values.size()) return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = NumberOf(texts[i]).value_or(-1);
        if (values[i] < kLeast[i] || values[i] > kMost[i]) return false;
    }
    rings_.at(Index(values[0], values[1])) = {values[2], values[3], values[4]};
    return true;
}

}  // namespace orlo::simulator
