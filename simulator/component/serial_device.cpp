#include "simulator/component/serial_device.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <thread>

namespace orlo::simulator
{

namespace
{

struct SpeedRow {
    int bits_per_second;
    speed_t code;
};

constexpr std::array<SpeedRow, 11> kSpeeds = {{{110, B110},
                                               {300, B300},
                                               {600, B600},
                                               {1200, B1200},
                                               {2400, B2400},
                                               {4800, B4800},
                                               {9600, B9600},
                                               {19200, B19200},
                                               {38400, B38400},
                                               {57600, B57600},
                                               {115200, B115200}}};

/// Twice what modems take to see that DTR has fallen, unless register S25 says otherwise.
constexpr std::chrono::milliseconds kDtrDown{100};

const char* const kTaken = "usata da un altro programma";

/// Why the system refuses, for the operator's window; in the system's own words only what is
/// unusual. Letters with accents would need another encoding than this file's.
std::string SystemReason()
{
    switch (errno) {
        case ENOENT:
        case ENODEV:
        case ENXIO:
            return "dispositivo non trovato";
        case EACCES:
        case EPERM:
            return "permesso negato";
        case EBUSY:
            return kTaken;
        case ENOTTY:
            return "dispositivo non seriale";
        default:
            return std::strerror(errno);
    }
}

std::optional<std::string> Prepare(int descriptor, int bits_per_second)
{
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return kTaken;
    const auto* const speed =
        std::find_if(kSpeeds.begin(), kSpeeds.end(),
                     [&](const SpeedRow& row) { return row.bits_per_second == bits_per_second; });
    if (speed == kSpeeds.end()) return "non conosce " + std::to_string(bits_per_second) + " bit/s";
    termios settings{};
    if (tcgetattr(descriptor, &settings) != 0) return SystemReason();
    cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    settings.c_cc[VMIN] = 0;
    settings.c_cc[VTIME] = 0;
    cfsetspeed(&settings, speed->code);
    if (tcsetattr(descriptor, TCSANOW, &settings) != 0) return SystemReason();
    tcflush(descriptor, TCIFLUSH);
    return std::nullopt;
}

bool Interrupted()
{
    return errno == EINTR || errno == EAGAIN;
}

}  // namespace

std::optional<std::string> SerialDevice::Open(const std::string& name, int bits_per_second)
{
    Close();
    std::this_thread::sleep_until(dtr_falls_until_);
    descriptor_ = open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (!IsOpen()) return SystemReason();
    std::optional<std::string> reason = Prepare(descriptor_, bits_per_second);
    if (reason) Close();
    return reason;
}

void SerialDevice::Close()
{
    if (!IsOpen()) return;
    close(descriptor_);
    descriptor_ = -1;
    dtr_falls_until_ = std::chrono::steady_clock::now() + kDtrDown;
}

void SerialDevice::SetDtr(bool raised)
{
    const int line = TIOCM_DTR;
    if (!IsOpen()) return;
    if (raised) std::this_thread::sleep_until(dtr_falls_until_);
    if (ioctl(descriptor_, raised ? TIOCMBIS : TIOCMBIC, &line) == 0 && !raised)
        dtr_falls_until_ = std::chrono::steady_clock::now() + kDtrDown;
}

bool SerialDevice::Wait(short events, Deadline deadline) const
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd device{descriptor_, events, 0};
        const int ready = poll(&device, 1, static_cast<int>(std::max(left.count(), 0L)));
        if (ready >= 0 || errno != EINTR) return ready > 0;
    }
}

bool SerialDevice::Write(std::string_view bytes, Deadline deadline)
{
    while (!bytes.empty()) {
        if (!IsOpen() || !Wait(POLLOUT, deadline)) return false;
        const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || !Interrupted())
            Close();
    }
    return true;
}

std::string SerialDevice::Read(Deadline deadline)
{
    std::array<char, 512> piece{};
    while (IsOpen() && Wait(POLLIN, deadline)) {
        const ssize_t count = read(descriptor_, piece.data(), piece.size());
        if (count > 0) return {piece.data(), static_cast<std::size_t>(count)};
        // Readable and nothing there: the line has hung up.
        if (count == 0 || !Interrupted()) Close();
    }
    return {};
}

void SerialDevice::Discard() const
{
    if (IsOpen()) tcflush(descriptor_, TCIFLUSH);
}

}  // namespace orlo::simulator
