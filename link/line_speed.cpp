#include "link/line_speed.h"

// <asm/termbits.h> and <termios.h> define the same structures: nothing that includes the latter may
// come in here.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace orlo
{

bool SetLineSpeed(int file_descriptor, int bits_per_second)
{
    const auto wanted = static_cast<speed_t>(bits_per_second);
    termios2 settings{};
    if (ioctl(file_descriptor, TCGETS2, &settings) != 0) return false;
    if (settings.c_ispeed != wanted || settings.c_ospeed != wanted) {
        settings.c_cflag &= ~static_cast<tcflag_t>(CBAUD | (CBAUD << IBSHIFT));
        settings.c_cflag |= BOTHER | (BOTHER << IBSHIFT);
        settings.c_ispeed = wanted;
        settings.c_ospeed = wanted;
        if (ioctl(file_descriptor, TCSETS2, &settings) != 0) return false;
    }
    termios2 taken{};
    return ioctl(file_descriptor, TCGETS2, &taken) == 0 && taken.c_ospeed == wanted &&
           taken.c_ispeed == wanted;
}

}  // namespace orlo
