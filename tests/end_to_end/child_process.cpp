#include "tests/end_to_end/child_process.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>

namespace orlo::end_to_end
{

namespace
{

constexpr int kPatienceMs = 60000;

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::string ReadAll(int descriptor)
{
    std::string text;
    std::array<char, 4096> piece{};
    for (;;) {
        const ssize_t count = read(descriptor, piece.data(), piece.size());
        if (count <= 0) return text;
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
}

/// True when the process has ended in time.
bool WaitForEnd(pid_t pid)
{
    const int process = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
    const bool ended = WaitForInput(process);
    close(process);
    return ended;
}

// What is in nobody's bounding set is lost with the next program, even to root; others never had
// it.
void HeedPermissions()
{
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) prctl(PR_CAPBSET_DROP, right);
}

/// As on a network drive without locks: locks of open file descriptions fail.
void FailLocks(int error)
{
    const auto command = static_cast<unsigned>(offsetof(seccomp_data, args) + sizeof(__u64));
    const auto result = SECCOMP_RET_ERRNO | static_cast<unsigned>(error);
    std::array<sock_filter, 7> filter = {{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fcntl, 0, 4),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, command),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, F_OFD_SETLK, 1, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, F_OFD_SETLKW, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, result),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{filter.size(), filter.data()};
    // A test whose filter is not there must not pass.
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        _exit(127);
}

}  // namespace

bool WaitForInput(int descriptor)
{
    pollfd what{descriptor, POLLIN, 0};
    return poll(&what, 1, kPatienceMs) == 1;
}

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const Surroundings& surroundings)
{
    std::vector<std::string> texts = {program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = surroundings.environment;
    const std::vector<char*> argument_pointers = Pointers(texts);
    const std::vector<char*> environment_pointers = Pointers(environment);

    std::array<int, 2> output{};
    errors_ = memfd_create("errors", MFD_CLOEXEC);
    if (pipe2(output.data(), O_CLOEXEC) != 0 || errors_ < 0) std::abort();
    pid_ = fork();
    if (pid_ == 0) {
        // A test that is killed leaves no process behind.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(output[1], STDOUT_FILENO);
        dup2(errors_, STDERR_FILENO);
        if (chdir(surroundings.folder.c_str()) != 0) _exit(127);
        if (surroundings.longest_file) {
            const rlimit limit{*surroundings.longest_file, *surroundings.longest_file};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        if (surroundings.heeds_permissions) HeedPermissions();
        if (surroundings.lock_error) FailLocks(*surroundings.lock_error);
        execve(argument_pointers[0], argument_pointers.data(), environment_pointers.data());
        _exit(127);
    }
    close(output[1]);
    output_ = output[0];
}

ChildProcess::~ChildProcess()
{
    if (pid_ > 0) {
        Signal(SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(output_);
    close(errors_);
}

std::string ChildProcess::Line()
{
    std::string line;
    char c = 0;
    while (WaitForInput(output_) && read(output_, &c, 1) == 1) {
        if (c == '\n') return line;
        line += c;
    }
    return {};
}

void ChildProcess::Signal(int signal) const
{
    kill(pid_, signal);
}

Ended ChildProcess::Wait()
{
    if (!WaitForEnd(pid_)) Signal(SIGKILL);
    Ended ended;
    int status = 0;
    wait4(pid_, &status, 0, &ended.used);
    pid_ = -1;
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    ended.output = ReadAll(output_);
    lseek(errors_, 0, SEEK_SET);
    ended.errors = ReadAll(errors_);
    return ended;
}

}  // namespace orlo::end_to_end
