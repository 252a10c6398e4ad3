#pragma once

#include <ctime>

namespace jet::test
{

/// What this process has used so far, however busy the machine is with others.
inline double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

}  // namespace jet::test
