#pragma once

#include "link/clock.h"

namespace orlo
{

/// The PC's own clock and the event loop of the running application.
class SystemClock : public Clock
{
public:
    double SecondsSinceMidnight() override;
    QDate Date() override;
    QTime Time() override;
    std::chrono::milliseconds Monotonic() override;
    void YieldToEventLoop() override;
    void ProcessPendingEvents() override;
    void SleepUntilInput(SerialPortControl& port, std::chrono::milliseconds longest) override;
};

}  // namespace orlo
