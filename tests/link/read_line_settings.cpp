// The system's own answers to the questions how fast a device is and how it is held back.
// <asm/termbits.h> cannot stand in one file with <termios.h>.
#include "tests/link/read_line_settings.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <optional>

namespace orlo::testing
{

namespace
{

std::optional<termios2> Settings(const std::string& device)
{
    const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios2 settings{};
    const bool known = descriptor >= 0 && ioctl(descriptor, TCGETS2, &settings) == 0;
    close(descriptor);
    return known ? std::optional(settings) : std::nullopt;
}

}  // namespace

int ReadLineSpeed(const std::string& device)
{
    const auto settings = Settings(device);
    const bool one_speed = settings && settings->c_ispeed == settings->c_ospeed;
    return one_speed ? static_cast<int>(settings->c_ospeed) : -1;
}

bool HasRtsCts(const std::string& device)
{
    const auto settings = Settings(device);
    return settings && (settings->c_cflag & CRTSCTS) != 0;
}

}  // namespace orlo::testing
