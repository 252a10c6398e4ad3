// The system's own answer to the question how fast a device is. <asm/termbits.h> cannot stand in
// one file with <termios.h>.
#include "tests/link/read_line_speed.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orlo::testing
{

int ReadLineSpeed(const std::string& device)
{
    const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios2 settings{};
    const bool known = descriptor >= 0 && ioctl(descriptor, TCGETS2, &settings) == 0;
    close(descriptor);
    return known && settings.c_ispeed == settings.c_ospeed ? static_cast<int>(settings.c_ospeed)
                                                           : -1;
}

}  // namespace orlo::testing
