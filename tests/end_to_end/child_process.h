#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace orlo::end_to_end
{

/// How a process ended and what it said.
struct Ended {
    /// Exit status; 128 and the signal when one killed it.
    int status = -1;
    std::string output;
    std::string errors;
    /// Processor time and the like of this process alone.
    rusage used{};
};

/// Where and with what a process starts.
struct Surroundings {
    std::string folder;
    std::vector<std::string> environment;
    /// No file may grow beyond so many bytes.
    std::optional<rlim_t> longest_file = std::nullopt;
    /// The permissions of files hold for it, also when the test is run by root.
    bool heeds_permissions = false;
    /// The locks that it asks for to guard a database fail with this error number of the system.
    std::optional<int> lock_error = std::nullopt;
};

/// A program that runs beside the test and never outlives it.
class ChildProcess
{
public:
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const Surroundings& surroundings);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    /// Kills it if it still runs.
    ~ChildProcess();

    /// Next line of its standard output; empty when it ends or says nothing for a long time.
    std::string Line();

    void Signal(int signal) const;

    /// Waits for its end, a minute at the most: then it is killed, and the status tells so.
    Ended Wait();

private:
    pid_t pid_ = -1;
    int output_ = -1;
    int errors_ = -1;
};

/// True when there is something to read, or the end of it, before the patience of a test is over.
bool WaitForInput(int descriptor);

}  // namespace orlo::end_to_end
