#pragma once

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace orlo::testing
{

/// The far side of a line: a pseudo-terminal whose slave the program opens as its port.
class PseudoTerminal
{
public:
    PseudoTerminal() : master_(posix_openpt(O_RDWR | O_NOCTTY))
    {
        grantpt(master_);
        unlockpt(master_);
        termios raw{};
        tcgetattr(master_, &raw);
        cfmakeraw(&raw);
        tcsetattr(master_, TCSANOW, &raw);
    }
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    std::string SlaveName() const { return ptsname(master_); }

    void Send(std::string_view bytes) const
    {
        [[maybe_unused]] const ssize_t written = write(master_, bytes.data(), bytes.size());
    }
    /// Waits for exactly that many bytes.
    std::string Receive(std::size_t count) const
    {
        std::string bytes(count, '\0');
        std::size_t done = 0;
        while (done < count) {
            const ssize_t got = read(master_, bytes.data() + done, count - done);
            if (got <= 0) break;
            done += static_cast<std::size_t>(got);
        }
        bytes.resize(done);
        return bytes;
    }
    void HangUp()
    {
        if (master_ >= 0) close(master_);
        master_ = -1;
    }

private:
    int master_;
};

}  // namespace orlo::testing
