#include "app/exit_guard.h"

#include <cstdlib>
#include <utility>

namespace orlo
{

namespace
{

// What runs at exit reaches nothing but static storage.
std::function<void()>& Work()
{
    static std::function<void()> work;
    return work;
}

void DoWork()
{
    if (Work()) std::exchange(Work(), {})();
}

}  // namespace

ExitGuard::ExitGuard(std::function<void()> work)
{
    Work() = std::move(work);
    std::atexit(DoWork);
}

ExitGuard::~ExitGuard()
{
    Work() = {};
}

}  // namespace orlo
