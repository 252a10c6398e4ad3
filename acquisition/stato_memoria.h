#pragma once

#include "link/exchange.h"
#include "registry/contenitore.h"

namespace orlo
{

/// How the question for the punch memory ended. Only a good answer is a memory status in a
/// well-formed frame: a bad one is shown as if it were good, its counters being what stands in
/// their place, 0 for a bad frame.
enum class MemoryAnswer { Good, BadFrame, Timeout, PortNotOpen, NotAsked };

/// Asks the current terminal how full its punch memory is and shows it in the four memory panels;
/// leaves the counters in the program's state. The model is the one shown in the window.
/// `may_open_port` is false for a caller that already holds the port open. `meanwhile` is done
/// between the request and its answer.
MemoryAnswer StatoMemoria(Contenitore& window, bool may_open_port,
                          const MeanwhileWork& meanwhile = {});

/// Punches still to acquire by the counters in the program's state, 32767 at the most.
std::int16_t PunchesToAcquire(const ProgramState& state);

}  // namespace orlo
