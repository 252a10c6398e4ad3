#pragma once

#include <QDate>
#include <QTime>

#include <chrono>

namespace orlo
{

class SerialPortControl;

/// The clock of one change of the seconds-since-midnight reading, in seconds.
/// The read with an expired time-out and the tick-counted wait rest on a clock this coarse:
/// a finer one would shorten both to nothing.
inline constexpr double kClockStepSeconds = 1.0 / 18.2;

/// Everything that has to do with time: reading it, sleeping in it, and letting window events in.
/// Tests put a clock of their own here and run hours of waiting in milliseconds.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Seconds since local midnight, 0 up to 86400, moving in steps of kClockStepSeconds.
    virtual double SecondsSinceMidnight() = 0;

    virtual QDate Date() = 0;
    virtual QTime Time() = 0;

    /// Time that never goes back and knows no midnight.
    virtual std::chrono::milliseconds Monotonic() = 0;

    /// Lets pending window events run, then sleeps until the next event or the next step of the
    /// clock, whichever is first. A loop of yields therefore does not spin.
    virtual void YieldToEventLoop() = 0;

    /// Lets pending window events run and returns at once.
    virtual void ProcessPendingEvents() = 0;

    /// Sleeps in the operating system until the port has a byte to read, has lost its line, or
    /// `longest` has passed. Window events do not run meanwhile.
    virtual void SleepUntilInput(SerialPortControl& port, std::chrono::milliseconds longest) = 0;
};

}  // namespace orlo
