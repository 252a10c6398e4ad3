#pragma once

#include "link/workstation.h"
#include "registry/program_state.h"

namespace orlo
{

/// The pause before talking to the current terminal through the protocol component: its slot's
/// `Ritardo`, see WaitDelay. Throws std::out_of_range for a current terminal outside 1..32.
void WaitTerminalDelay(const ProgramState& state, Workstation& workstation);

}  // namespace orlo
