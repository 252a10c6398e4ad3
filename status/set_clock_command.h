#pragma once

#include "link/clock.h"

#include <string>

namespace orlo
{

/// The command that sets a serial terminal's clock from the PC's, 15 characters: on Sunday 5 March
/// 2006 at 14:07:09 "010603051407090".
std::string SetClockCommand(Clock& clock);

}  // namespace orlo
