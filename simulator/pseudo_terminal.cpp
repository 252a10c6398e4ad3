#include "simulator/pseudo_terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace orlo::simulator
{

namespace
{

namespace fs = std::filesystem;

void Check(int result, const char* what)
{
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
}

std::string PrepareSlave(int master)
{
    Check(grantpt(master), "grantpt");
    Check(unlockpt(master), "unlockpt");
    termios settings{};
    Check(tcgetattr(master, &settings), "tcgetattr");
    cfmakeraw(&settings);
    Check(tcsetattr(master, TCSANOW, &settings), "tcsetattr");
    std::array<char, 64> name{};
    if (const int error = ptsname_r(master, name.data(), name.size()))
        throw std::system_error(error, std::generic_category(), "ptsname_r");
    return name.data();
}

}  // namespace

FileDescriptor::FileDescriptor(int descriptor, const char* what) : descriptor_(descriptor)
{
    Check(descriptor, what);
}

FileDescriptor::~FileDescriptor()
{
    close(descriptor_);
}

PseudoTerminal::PseudoTerminal(std::string link)
    : master_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "posix_openpt"),
      slave_(PrepareSlave(master_.Get())),
      link_(std::move(link))
{
    if (fs::is_symlink(link_)) fs::remove(link_);
    fs::create_symlink(slave_, link_);
}

PseudoTerminal::~PseudoTerminal()
{
    std::error_code ignored;
    if (fs::read_symlink(link_, ignored) == slave_) fs::remove(link_, ignored);
}

std::string PseudoTerminal::Read()
{
    std::string bytes;
    std::array<char, 512> piece{};
    for (;;) {
        const ssize_t count = read(master_.Get(), piece.data(), piece.size());
        if (count > 0)
            bytes.append(piece.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return bytes;  // EAGAIN: nothing more; EIO: nobody there
    }
}

bool PseudoTerminal::IsOpened() const
{
    pollfd line{master_.Get(), POLLOUT, 0};
    return poll(&line, 1, 0) >= 0 && (line.revents & POLLHUP) == 0;
}

void PseudoTerminal::Write(std::string_view bytes)
{
    if (!IsOpened()) return;
    while (!bytes.empty()) {
        const ssize_t count = write(master_.Get(), bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return;
    }
}

}  // namespace orlo::simulator
