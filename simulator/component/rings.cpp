#include "simulator/component/rings.h"

#include "simulator/object_requests.h"

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kRingDigits = 6;  // hour, minute, duration of 2 each

}  // namespace

Rings::Ring& Rings::Selected()
{
    const bool known = day_ >= 0 && day_ < kDays && index_ >= 1 && index_ <= kRingsADay;
    if (known) return rings_.at(static_cast<std::size_t>(day_ * kRingsADay + index_ - 1));
    nowhere_ = {};
    return nowhere_;
}

bool Rings::Receive(std::int16_t& terminal, std::int16_t& priority, std::int16_t& day)
{
    if (!transfer_.Ask(terminal, priority, {request::kReadRings, std::to_string(day)}, 1))
        return false;
    const std::string_view digits = transfer_.Data().front();
    if (digits.size() != kRingsADay * kRingDigits) return transfer_.Fail(kWrongAnswer);
    day_ = day;
    for (index_ = 1; index_ <= kRingsADay; ++index_) {
        const std::size_t first = static_cast<std::size_t>(index_ - 1) * kRingDigits;
        const auto value = [&](std::size_t offset) {
            return static_cast<std::int16_t>(NumberIn(digits.substr(first + offset, 2)));
        };
        Selected() = {value(0), value(2), value(4)};
    }
    index_ = 1;
    return true;
}

bool Rings::Send(std::int16_t& terminal, std::int16_t& priority)
{
    const Ring& ring = Selected();
    return transfer_.Ask(
        terminal, priority,
        {request::kSendRing, std::to_string(day_), std::to_string(index_),
         std::to_string(ring.hour), std::to_string(ring.minute), std::to_string(ring.how_long)},
        0);
}

}  // namespace orlo::simulator
