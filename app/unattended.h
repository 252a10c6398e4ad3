#pragma once

#include "app/command_line.h"
#include "app/desk.h"

namespace orlo
{

enum ExitStatus : int { kAllDone = 0, kNotAllDone = 1, kWrongUsage = 2 };

/// Carries out the unattended commands of the command line on a desk whose window is never shown.
/// Each terminal that was not done is named on standard error with its reason.
ExitStatus RunUnattended(Desk& desk, const CommandLine& command_line);

}  // namespace orlo
