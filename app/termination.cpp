#include "app/termination.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace orlo
{

namespace
{

volatile std::sig_atomic_t g_requested = 0;
// A signal handler reaches nothing but static storage.
std::array<int, 2> g_wake_up = {-1, -1};

void OnSignal(int /*signal*/)
{
    g_requested = 1;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(g_wake_up[1], &byte, 1);
}

void Handle(int signal_number)
{
    struct sigaction action {
    };
    // A signal that the caller has us ignore, as nohup does, stays ignored.
    sigaction(signal_number, nullptr, &action);
    if (action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    sigaction(signal_number, &action, nullptr);
}

}  // namespace

Termination::Termination(QObject* parent) : QObject(parent), notifier_(nullptr)
{
    if (pipe2(g_wake_up.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = new QSocketNotifier(g_wake_up[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] const ssize_t got = read(g_wake_up[0], &byte, 1);
        emit Asked();
    });
    for (const int signal_number : {SIGTERM, SIGINT, SIGHUP}) Handle(signal_number);
}

Termination::~Termination()
{
    for (const int signal_number : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal_number, SIG_DFL);
    g_requested = 0;
}

bool Termination::Requested()
{
    return g_requested != 0;
}

}  // namespace orlo
