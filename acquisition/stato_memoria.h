#pragma once

#include "link/exchange.h"
#include "registry/contenitore.h"

namespace orlo
{

/// How the question for the punch memory ended. A bad frame, and a frame without the counters, are
/// shown as if they were good, and what they lack reads 0; only Good has told how many are left.
/// Refused is the answer of an object-driven terminal that failed.
enum class MemoryAnswer { Good, NoCounters, BadFrame, Timeout, PortNotOpen, Refused, NotAsked };

/// Asks the current terminal how full its punch memory is and shows it in the four memory panels;
/// a serial model's counters stay in the program's state. The model is the one shown in the window.
/// `may_open_port` is false for a caller that already holds the port open. `meanwhile` is done
/// between the request and its answer of a serial model. For an object-driven model it throws what
/// the protocol component throws, see GuardComponentCalls.
MemoryAnswer StatoMemoria(Contenitore& window, bool may_open_port,
                          const MeanwhileWork& meanwhile = {});

/// Punches still to acquire by the counters in the program's state, 32767 at the most.
std::int16_t PunchesToAcquire(const ProgramState& state);

}  // namespace orlo
