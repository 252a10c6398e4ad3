#pragma once

#include "simulator/punch_memory.h"
#include "simulator/terminal_model.h"

#include <string>

namespace orlo::simulator
{

/// The answer to "32", for example with 42 punches of which 30 are acquired, counted from zero:
/// "TPnt 00041 TrInMemory 00012 TpntOld 00030 TpntNew 00041".
std::string MemoryStatus(Counting counting, const PunchMemory& memory);

}  // namespace orlo::simulator
