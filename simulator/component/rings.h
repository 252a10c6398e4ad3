#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

#include <array>

namespace orlo::simulator
{

class Rings : public component::Rings
{
public:
    explicit Rings(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line)) {}

    bool Receive(std::int16_t& terminal, std::int16_t& priority, std::int16_t& day) override;
    bool Send(std::int16_t& terminal, std::int16_t& priority) override;
    void RingDay(std::int16_t day) override { day_ = day; }
    void RingIndex(std::int16_t index) override { index_ = index; }
    std::int16_t RingHour() override { return Selected().hour; }
    void RingHour(std::int16_t hour) override { Selected().hour = hour; }
    std::int16_t RingMinute() override { return Selected().minute; }
    void RingMinute(std::int16_t minute) override { Selected().minute = minute; }
    std::int16_t RingHowLong() override { return Selected().how_long; }
    void RingHowLong(std::int16_t duration) override { Selected().how_long = duration; }
    std::string ReceivedCommand() override { return transfer_.Code(); }

private:
    static constexpr int kDays = 7;
    static constexpr int kRingsADay = 24;

    struct Ring {
        std::int16_t hour = 0;
        std::int16_t minute = 0;
        std::int16_t how_long = 0;
    };

    /// A day or an index that there is not selects a ring that goes nowhere.
    Ring& Selected();

    Transfer transfer_;
    std::array<Ring, kDays * kRingsADay> rings_;
    Ring nowhere_;
    std::int16_t day_ = 0;
    std::int16_t index_ = 1;
};

}  // namespace orlo::simulator
