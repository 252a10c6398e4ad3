#pragma once

#include "simulator/far_end.h"
#include "simulator/pseudo_terminal.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace orlo::simulator
{

/// Puts a far end behind a pseudo-terminal and lives its life: bytes come in, answers go out at
/// their times, reckoned on one schedule of the monotonic clock so that late wake-ups do not add
/// up.
class PtyServer
{
public:
    /// What the server has to tell while it runs.
    struct Events {
        std::function<void()> ready;            // the link can be opened, also after a hang-up
        std::function<void()> hung_up;          // the link is gone
        std::function<void()> state_asked_for;  // SIGUSR1
    };

    /// From here on the calling thread gets SIGTERM, SIGINT, SIGHUP and SIGUSR1 through Run only.
    /// Throws std::system_error.
    PtyServer(std::string link, FarEnd& far_end, Events events);

    /// Until SIGTERM, SIGINT or SIGHUP. Throws std::system_error when no pseudo-terminal is to be
    /// had.
    void Run();

private:
    void OpenLine();
    void LoseLine(std::chrono::milliseconds duration);
    void WaitForSomething();
    void SetTimer();
    void NoticeClosing();
    void ReceiveRequests();
    void SendWhatIsDue();
    /// False when the signal ends the program.
    bool HandleSignal();

    std::string link_;
    FarEnd& far_end_;
    Events events_;
    FileDescriptor signals_;
    FileDescriptor timer_;
    FileDescriptor waiter_;
    std::optional<PseudoTerminal> pty_;
    bool opened_ = false;  // by a program
    std::multimap<Instant, LineEvent> due_;
    std::optional<Instant> reopen_at_;
};

}  // namespace orlo::simulator
