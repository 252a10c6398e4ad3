#include "registry/wait_terminal_delay.h"

#include "link/waits.h"

namespace orlo
{

void WaitTerminalDelay(const ProgramState& state, Workstation& workstation)
{
    const auto slot = static_cast<std::size_t>(state.CurrentTerminalNumber - 1);
    WaitDelay(workstation, state.TerminalTable.at(slot).Ritardo);
}

}  // namespace orlo
