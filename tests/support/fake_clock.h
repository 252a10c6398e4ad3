#pragma once

#include "link/clock.h"
#include "link/serial_port_control.h"

#include <QCoreApplication>

#include <cmath>
#include <functional>

namespace orlo::testing
{

/// A clock that only moves when somebody waits: hours pass in milliseconds.
class FakeClock : public Clock
{
public:
    /// Starts at 08:00:00 of 2026-03-05.
    FakeClock() { SetTimeOfDay(QTime(8, 0)); }

    void SetTimeOfDay(const QTime& time) { milliseconds_of_day_ = time.msecsSinceStartOfDay(); }
    void SetDate(const QDate& date) { date_ = date; }

    void Advance(std::chrono::milliseconds time)
    {
        for (std::int64_t i = 0; i < time.count(); ++i) AdvanceOneMillisecond();
    }

    /// Total time that has passed since the clock was made.
    std::chrono::milliseconds Passed() const { return passed_; }

    /// Called after every millisecond, for events at a certain time.
    std::function<void()> on_tick;

    double SecondsSinceMidnight() override
    {
        const double seconds = static_cast<double>(milliseconds_of_day_) / 1000.0;
        return std::floor(seconds / kClockStepSeconds) * kClockStepSeconds;
    }
    QDate Date() override { return date_; }
    QTime Time() override
    {
        return QTime::fromMSecsSinceStartOfDay(static_cast<int>(milliseconds_of_day_));
    }
    std::chrono::milliseconds Monotonic() override { return passed_; }

    void YieldToEventLoop() override
    {
        QCoreApplication::processEvents();
        const double step = SecondsSinceMidnight();
        while (SecondsSinceMidnight() == step) AdvanceOneMillisecond();
    }
    void ProcessPendingEvents() override { QCoreApplication::processEvents(); }

    void SleepUntilInput(SerialPortControl& port, std::chrono::milliseconds longest) override
    {
        for (std::int64_t i = 0; i < longest.count(); ++i) {
            if (port.InBufferCount() > 0 || port.LineLost()) return;
            AdvanceOneMillisecond();
        }
    }

private:
    static constexpr std::int64_t kDay = 86'400'000;

    void AdvanceOneMillisecond()
    {
        ++passed_;
        if (++milliseconds_of_day_ == kDay) {
            milliseconds_of_day_ = 0;
            date_ = date_.addDays(1);
        }
        if (on_tick) on_tick();
    }

    std::int64_t milliseconds_of_day_ = 0;
    QDate date_{2026, 3, 5};
    std::chrono::milliseconds passed_{0};
};

}  // namespace orlo::testing
