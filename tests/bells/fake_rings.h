#pragma once

#include "registry/ring_table.h"
#include "tests/support/fake_component.h"

#include <array>
#include <deque>
#include <optional>
#include <string>

namespace orlo::testing
{

/// The bells of the fake component's terminal. Transfers are kept in the component's list: a
/// receipt as "Rings.Receive(4, 7, day 0)", a ring that was sent as "Rings.Send(4, 7) 0/1 07:55 5".
class FakeRings
{
public:
    explicit FakeRings(FakeComponent& component) : component_(component) {}

    std::array<std::array<RingEntry, kRingsOfDay>, kRingDays> week{};
    /// Codes of transfers, in their order; an empty one succeeds, as do those behind the last.
    std::deque<std::string> failures;
    /// No transfer succeeds.
    bool silent = false;

    std::unique_ptr<component::Rings> Make() { return std::make_unique<Object>(*this); }

private:
    /// Spoils what is passed by reference, as an automation component may.
    bool Transfer(const std::string& call, std::int16_t& terminal, std::int16_t& priority)
    {
        terminal = priority = -1;
        code_ = silent ? "99,Time Out" : "";
        if (!failures.empty()) {
            code_ = failures.front();
            failures.pop_front();
        }
        component_.Call(call);
        return code_.empty();
    }

    class Object : public component::Rings
    {
    public:
        explicit Object(FakeRings& fake) : fake_(fake) {}
        bool Receive(std::int16_t& terminal, std::int16_t& priority, std::int16_t& day) override
        {
            const std::int16_t asked = day;
            day = -1;
            if (!fake_.Transfer("Rings.Receive(" + Both(terminal, priority) + ", day " +
                                    std::to_string(asked) + ")",
                                terminal, priority))
                return false;
            day_ = asked;
            received_ = fake_.week.at(static_cast<std::size_t>(asked));
            return true;
        }
        bool Send(std::int16_t& terminal, std::int16_t& priority) override
        {
            const std::string ring = std::to_string(day_) + "/" + std::to_string(index_) + " " +
                                     Two(Selected().Hour) + ":" + Two(Selected().Minute) + " " +
                                     std::to_string(Selected().HowLong);
            if (!fake_.Transfer("Rings.Send(" + Both(terminal, priority) + ") " + ring, terminal,
                                priority))
                return false;
            fake_.week.at(static_cast<std::size_t>(day_)).at(static_cast<std::size_t>(index_ - 1)) =
                Selected();
            return true;
        }
        void RingDay(std::int16_t day) override { day_ = day; }
        void RingIndex(std::int16_t index) override { index_ = index; }
        std::int16_t RingHour() override { return Selected().Hour; }
        void RingHour(std::int16_t hour) override { Selected().Hour = hour; }
        std::int16_t RingMinute() override { return Selected().Minute; }
        void RingMinute(std::int16_t minute) override { Selected().Minute = minute; }
        std::int16_t RingHowLong() override { return Selected().HowLong; }
        void RingHowLong(std::int16_t duration) override { Selected().HowLong = duration; }
        std::string ReceivedCommand() override { return fake_.code_; }

    private:
        static std::string Both(std::int16_t terminal, std::int16_t priority)
        {
            return std::to_string(terminal) + ", " + std::to_string(priority);
        }
        static std::string Two(int number)
        {
            return (number < 10 ? "0" : "") + std::to_string(number);
        }
        RingEntry& Selected() { return received_.at(static_cast<std::size_t>(index_ - 1)); }

        FakeRings& fake_;
        std::int16_t day_ = -1;
        std::int16_t index_ = 1;
        std::array<RingEntry, kRingsOfDay> received_{};
    };

    FakeComponent& component_;
    std::string code_;
};

}  // namespace orlo::testing
