#include "link/system_clock.h"

#include "link/serial_port_control.h"

#include <QCoreApplication>
#include <QTimer>

#include <cmath>

namespace orlo
{

namespace
{

double FineSecondsSinceMidnight()
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

}  // namespace

double SystemClock::SecondsSinceMidnight()
{
    return std::floor(FineSecondsSinceMidnight() / kClockStepSeconds) * kClockStepSeconds;
}

QDate SystemClock::Date()
{
    return QDate::currentDate();
}

QTime SystemClock::Time()
{
    return QTime::currentTime();
}

std::chrono::milliseconds SystemClock::Monotonic()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

void SystemClock::YieldToEventLoop()
{
    const double to_next_step =
        kClockStepSeconds - std::fmod(FineSecondsSinceMidnight(), kClockStepSeconds);
    QTimer wake_up;
    wake_up.setSingleShot(true);
    wake_up.setTimerType(Qt::PreciseTimer);
    wake_up.start(static_cast<int>(std::ceil(to_next_step * 1000)));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void SystemClock::ProcessPendingEvents()
{
    QCoreApplication::processEvents();
}

void SystemClock::SleepUntilInput(SerialPortControl& port, std::chrono::milliseconds longest)
{
    port.WaitForInput(longest);
}

}  // namespace orlo
