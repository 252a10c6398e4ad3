#pragma once

#include "simulator/terminal_model.h"

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// Local date and time of the machine, to the second; tests put their own here.
using LocalClock = std::function<std::chrono::local_seconds()>;

LocalClock MachineClock();

/// A terminal's clock: the machine's, so many seconds off.
class TerminalClock
{
public:
    TerminalClock(LocalClock machine, std::chrono::seconds offset);

    std::chrono::local_seconds Now() const { return machine_() + offset_; }
    std::chrono::seconds Offset() const { return offset_; }

    /// Sets the clock from "yymmddhhnnssw", w being 0 for Sunday up to 6. False, and nothing
    /// changed, when that is no date and time of 2000 to 2099.
    [[nodiscard]] bool Set(std::string_view fields);

    void Set(std::chrono::local_seconds time) { offset_ = time - machine_(); }

    /// The fields of the last successful setting as they came, empty before.
    const std::string& LastSetting() const { return last_setting_; }

private:
    LocalClock machine_;
    std::chrono::seconds offset_;
    std::string last_setting_;
};

/// The answer to "03": state, date, release, time.
std::string ClockAnswer(ClockLayout layout, std::chrono::local_seconds now,
                        std::string_view release);

}  // namespace orlo::simulator
