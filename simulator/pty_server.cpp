#include "simulator/pty_server.h"

#include <signal.h>
#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

namespace orlo::simulator
{

namespace
{

void Check(int result, const char* what)
{
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
}

// The clock of timerfd's CLOCK_MONOTONIC.
Instant Now()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

int SignalDescriptor()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGUSR1}) sigaddset(&signals, signal);
    Check(sigprocmask(SIG_BLOCK, &signals, nullptr), "sigprocmask");
    return signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

void Watch(int waiter, int descriptor, std::uint32_t events)
{
    epoll_event event{};
    event.events = events;
    Check(epoll_ctl(waiter, EPOLL_CTL_ADD, descriptor, &event), "epoll_ctl");
}

}  // namespace

PtyServer::PtyServer(std::string link, FarEnd& far_end, Events events)
    : link_(std::move(link)),
      far_end_(far_end),
      events_(std::move(events)),
      signals_(SignalDescriptor(), "signalfd"),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC), "timerfd_create"),
      waiter_(epoll_create1(EPOLL_CLOEXEC), "epoll_create1")
{
    Watch(waiter_.Get(), signals_.Get(), EPOLLIN);
    Watch(waiter_.Get(), timer_.Get(), EPOLLIN);
}

void PtyServer::Run()
{
    OpenLine();
    while (HandleSignal()) {
        if (reopen_at_ && *reopen_at_ <= Now()) OpenLine();
        ReceiveRequests();
        SendWhatIsDue();
        WaitForSomething();
    }
}

void PtyServer::OpenLine()
{
    reopen_at_.reset();
    pty_.emplace(link_);
    // Only changes are reported: the hang-up that lasts as long as nobody has the other end open
    // would otherwise wake this loop for ever.
    Watch(waiter_.Get(), pty_->Descriptor(), EPOLLIN | EPOLLET);
    events_.ready();
}

void PtyServer::LoseLine(std::chrono::milliseconds duration)
{
    pty_.reset();
    due_.clear();
    far_end_.HangUp();
    reopen_at_ = Now() + duration;
    events_.hung_up();
}

void PtyServer::WaitForSomething()
{
    SetTimer();
    epoll_event event{};
    if (epoll_wait(waiter_.Get(), &event, 1, -1) < 0 && errno != EINTR) Check(-1, "epoll_wait");
}

void PtyServer::SetTimer()
{
    std::optional<Instant> next = reopen_at_;
    if (const std::optional<Instant> wake = far_end_.WakeAt(); wake && pty_)
        next = std::min(next.value_or(Instant::max()), *wake);
    if (!due_.empty()) next = std::min(next.value_or(Instant::max()), due_.begin()->first);
    // Zero disarms. Setting it anew also takes back an expiry that was not read.
    itimerspec when{};
    if (next) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(*next);
        when.it_value.tv_sec = seconds.count();
        when.it_value.tv_nsec = (*next - seconds).count();
    }
    Check(timerfd_settime(timer_.Get(), TFD_TIMER_ABSTIME, &when, nullptr), "timerfd_settime");
}

void PtyServer::ReceiveRequests()
{
    if (!pty_) return;
    for (LineEvent& event : far_end_.Receive(pty_->Read(), Now()))
        due_.emplace(event.due, std::move(event));
    NoticeClosing();
}

void PtyServer::NoticeClosing()
{
    const bool was_opened = std::exchange(opened_, pty_->IsOpened());
    if (was_opened && !opened_) far_end_.PortClosed();
}

void PtyServer::SendWhatIsDue()
{
    while (!due_.empty() && due_.begin()->first <= Now()) {
        const LineEvent event = std::move(due_.begin()->second);
        due_.erase(due_.begin());
        pty_->Write(event.bytes);
        if (event.hang_up) LoseLine(*event.hang_up);
    }
}

bool PtyServer::HandleSignal()
{
    signalfd_siginfo signal{};
    while (read(signals_.Get(), &signal, sizeof signal) == sizeof signal) {
        if (signal.ssi_signo != SIGUSR1) return false;
        events_.state_asked_for();
    }
    return true;
}

}  // namespace orlo::simulator
