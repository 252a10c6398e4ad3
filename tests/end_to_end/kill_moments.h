#pragma once

#include "tests/end_to_end/child_process.h"

#include <signal.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace orlo::end_to_end
{

/// Moments at which a program is killed: spread over the time that it takes when it is left alone,
/// from before its first instruction on.
class KillMoments
{
public:
    using Microseconds = std::chrono::microseconds;

    KillMoments(unsigned seed, Microseconds whole_run)
        : random_(seed), delay_(0, whole_run.count() * 5 / 4)
    {
    }

    /// Kills it at the next moment. False when it had ended by itself before.
    bool Kill(ChildProcess& process)
    {
        std::this_thread::sleep_for(Microseconds(delay_(random_)));
        process.Signal(SIGKILL);
        return process.Wait().status == 128 + SIGKILL;
    }

private:
    std::mt19937 random_;
    std::uniform_int_distribution<Microseconds::rep> delay_;
};

/// Time that the action takes.
template <typename Action>
KillMoments::Microseconds TimeOf(const Action& action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration_cast<KillMoments::Microseconds>(std::chrono::steady_clock::now() -
                                                                 begin);
}

/// How many kills a test makes: ORLO_KILLS in the environment, for longer runs by hand.
inline int WantedKills(int usual)
{
    const char* wanted = std::getenv("ORLO_KILLS");
    return wanted != nullptr ? std::atoi(wanted) : usual;
}

}  // namespace orlo::end_to_end
