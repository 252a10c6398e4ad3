#include "link/exchange.h"

#include "link/telegram.h"
#include "link/waits.h"

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

constexpr float kAnswerSeconds = 2.0F;
/// How long nothing must come over the line, and how long it is listened to at the most.
struct RunOut {
    std::chrono::milliseconds silence;
    std::chrono::milliseconds longest;
};
constexpr RunOut kRunOut{std::chrono::milliseconds{1000}, std::chrono::milliseconds{3000}};
/// Behind a request that nobody asked for the operator is waiting for the window.
constexpr RunOut kUnaskedRunOut{std::chrono::milliseconds{300}, std::chrono::milliseconds{600}};
constexpr int kLastTick = 100;
/// Well below a step of the clock, so that no change is missed.
constexpr std::chrono::milliseconds kBetweenReadings{20};

/// Behind a reading of the clock that has just failed: its answer, which would be taken for the
/// next one, is thrown away when it comes. When nothing comes the whole time is waited.
void LetUnaskedAnswerCome(Workstation& workstation, SerialPortControl& port)
{
    if (workstation.unasked || workstation.unasked_answer.port != &port) return;
    const auto left = [&workstation] {
        return workstation.unasked_answer.until - workstation.clock.Monotonic();
    };
    bool came = false;
    while (left() > std::chrono::milliseconds{0} && !port.LineLost()) {
        came = came || port.InBufferCount() > 0;
        port.DiscardInput();
        workstation.clock.SleepUntilInput(port, std::min(left(), kRunOut.silence));
        if (came && port.InBufferCount() == 0) break;
    }
    workstation.unasked_answer = {};
}

void SendRequest(Workstation& workstation, SerialPortControl& port, int terminal_number,
                 std::string_view command)
{
    LetUnaskedAnswerCome(workstation, port);
    // A late answer to the request before is thrown away here.
    port.DiscardInput();
    port.Output(BuildRequestFrame(terminal_number, command));
}

/// Takes what has arrived; true when the answer is complete.
bool TakeArrived(SerialPortControl& port, std::string& received)
{
    if (port.InBufferCount() > 0) received += port.Input();
    return HoldsCompleteAnswer(received);
}

/// A second at the most, so that an overdue wait can look at the Escape key; a step of the clock at
/// the least, as the clock does not move in between.
std::chrono::milliseconds SleepFor(double seconds)
{
    const double bounded = std::clamp(seconds, kClockStepSeconds, 1.0);
    return std::chrono::milliseconds(std::llround(std::ceil(bounded * 1000)));
}

}  // namespace

std::string ExchangeTelegram(Workstation& workstation, SerialPortControl& port, int terminal_number,
                             std::string_view command, const MeanwhileWork& meanwhile)
{
    SendRequest(workstation, port, terminal_number, command);
    if (terminal_number <= 0) {
        if (meanwhile) meanwhile();
        return {};
    }

    std::string received;
    const float start = StartOfWait(workstation.clock);
    OverdueWait overdue(workstation, kAnswerSeconds);
    if (meanwhile) meanwhile();
    // What has arrived is read before the deadline is judged: work meanwhile may have taken longer
    // than the wait, and an answer that came in time is an answer.
    while (!TakeArrived(port, received)) {
        const float elapsed = ElapsedSeconds(workstation.clock, start);
        if (elapsed >= kAnswerSeconds || port.LineLost() || overdue.Aborted())
            return std::string(kTimeout);
        workstation.clock.SleepUntilInput(port, SleepFor(kAnswerSeconds - elapsed));
    }
    return ParseAnswerFrame(terminal_number, received);
}

// The wait lasts 101 changes of a clock that steps every 1/18.2 s, some 5.5 s in all. Keep the
// count a count: turned into a duration it would no longer follow the clock it counts.
std::string ExchangeTelegramTicks(Workstation& workstation, SerialPortControl& port,
                                  int terminal_number, std::string_view command)
{
    SendRequest(workstation, port, terminal_number, command);
    if (terminal_number <= 0) return {};

    std::string received;
    float reading = StartOfWait(workstation.clock);
    for (int tick = 0; tick <= kLastTick; ++tick) {
        do {
            if (TakeArrived(port, received)) return ParseAnswerFrame(terminal_number, received);
            if (port.LineLost()) return std::string(kTimeout);
            workstation.clock.SleepUntilInput(port, kBetweenReadings);
        } while (StartOfWait(workstation.clock) == reading);
        reading = StartOfWait(workstation.clock);
    }
    if (TakeArrived(port, received)) return ParseAnswerFrame(terminal_number, received);
    return std::string(kTimeout);
}

void LetLineRunOut(Workstation& workstation, SerialPortControl& port)
{
    const RunOut& run_out = workstation.unasked ? kUnaskedRunOut : kRunOut;
    const std::chrono::milliseconds end = workstation.clock.Monotonic() + run_out.longest;
    do {
        port.DiscardInput();
        workstation.clock.SleepUntilInput(port, run_out.silence);
    } while (port.InBufferCount() > 0 && workstation.clock.Monotonic() < end);
    if (workstation.unasked)
        workstation.unasked_answer = {&port, workstation.clock.Monotonic() + kRunOut.longest};
}

}  // namespace orlo
