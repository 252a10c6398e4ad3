#pragma once

#include <functional>

namespace orlo
{

/// Work that must be done before the program ends, also when the toolkit ends it by exit() because
/// the display has gone away: objects on the stack are not destroyed then. One at a time; the work
/// is dropped when the guard is destroyed in the usual way.
class ExitGuard
{
public:
    explicit ExitGuard(std::function<void()> work);
    ~ExitGuard();
    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace orlo
