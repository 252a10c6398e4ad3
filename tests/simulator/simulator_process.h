#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace orlo::simulator
{

/// The program running beside the test.
class SimulatorProcess
{
public:
    explicit SimulatorProcess(const std::vector<std::string>& arguments);
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;
    /// Kills it if it still runs.
    ~SimulatorProcess();

    /// Next line of its standard output; empty when it ends or says nothing for ten seconds.
    std::string Line();

    /// Everything that remains of its two outputs, once it has ended.
    std::string Rest();
    std::string Complaints();

    void Signal(int signal) const;

    /// Exit status; 128 and the signal when one killed it.
    int Wait();

private:
    pid_t pid_ = -1;
    int output_ = -1;
    int errors_ = -1;
};

/// One end of a serial line, opened by a path as a program opens its port.
class Port
{
public:
    explicit Port(const std::string& path);
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    ~Port();

    bool IsOpen() const { return descriptor_ >= 0; }
    void Write(const std::string& bytes) const;

    /// Reads until there are as many bytes, the line is lost, or nothing comes for ten seconds.
    std::string Read(std::size_t bytes) const;

    /// Reads until the bytes end so, under the same conditions.
    std::string ReadThrough(const std::string& end) const;

    /// Waits until the line is lost; false after ten seconds.
    bool IsLost() const;

private:
    /// False when the line is lost or nothing comes.
    bool ReadMore(std::string& text) const;

    int descriptor_;
};

}  // namespace orlo::simulator
