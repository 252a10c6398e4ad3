#include "tests/simulator/simulator_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace orlo::simulator
{

namespace
{

constexpr int kPatienceMs = 10000;

bool WaitFor(int descriptor)
{
    pollfd what{descriptor, POLLIN, 0};
    return poll(&what, 1, kPatienceMs) == 1;
}

std::string ReadToEnd(int descriptor)
{
    std::string text;
    std::array<char, 512> piece{};
    while (WaitFor(descriptor)) {
        const ssize_t count = read(descriptor, piece.data(), piece.size());
        if (count <= 0) break;
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace

SimulatorProcess::SimulatorProcess(const std::vector<std::string>& arguments)
{
    std::vector<std::string> texts = {ORLO_SIMULATOR_PATH};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);

    std::array<int, 2> output{};
    std::array<int, 2> errors{};
    if (pipe2(output.data(), O_CLOEXEC) != 0 || pipe2(errors.data(), O_CLOEXEC) != 0) std::abort();
    pid_ = fork();
    if (pid_ == 0) {
        // A test that is killed leaves no simulator behind.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        dup2(output[1], STDOUT_FILENO);
        dup2(errors[1], STDERR_FILENO);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    close(output[1]);
    close(errors[1]);
    output_ = output[0];
    errors_ = errors[0];
}

SimulatorProcess::~SimulatorProcess()
{
    if (pid_ > 0) {
        Signal(SIGKILL);
        Wait();
    }
    close(output_);
    close(errors_);
}

std::string SimulatorProcess::Line()
{
    std::string line;
    char c = 0;
    while (WaitFor(output_) && read(output_, &c, 1) == 1) {
        if (c == '\n') return line;
        line += c;
    }
    return {};
}

std::string SimulatorProcess::Rest()
{
    return ReadToEnd(output_);
}

std::string SimulatorProcess::Complaints()
{
    return ReadToEnd(errors_);
}

void SimulatorProcess::Signal(int signal) const
{
    kill(pid_, signal);
}

int SimulatorProcess::Wait()
{
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Port::Port(const std::string& path) : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC))
{
}

Port::~Port()
{
    if (IsOpen()) close(descriptor_);
}

void Port::Write(const std::string& bytes) const
{
    if (write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        std::abort();
}

std::string Port::Read(std::size_t bytes) const
{
    std::string text;
    while (text.size() < bytes && ReadMore(text)) {
    }
    return text;
}

std::string Port::ReadThrough(const std::string& end) const
{
    std::string text;
    while (!text.ends_with(end) && ReadMore(text)) {
    }
    return text;
}

bool Port::ReadMore(std::string& text) const
{
    std::array<char, 512> piece{};
    if (!WaitFor(descriptor_)) return false;
    const ssize_t count = read(descriptor_, piece.data(), piece.size());
    if (count <= 0) return false;
    text.append(piece.data(), static_cast<std::size_t>(count));
    return true;
}

bool Port::IsLost() const
{
    for (;;) {
        pollfd what{descriptor_, 0, 0};
        if (poll(&what, 1, kPatienceMs) != 1) return false;
        if ((what.revents & POLLHUP) != 0) return true;
    }
}

}  // namespace orlo::simulator
