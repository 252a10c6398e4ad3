#pragma once

#include "link/workstation.h"

namespace orlo
{

/// True when the operator wants the running procedure to end. Only a short press of Escape since
/// the last look brings up the question; a key held down does not. Pending window events are let in
/// first, so that a press during a long procedure is seen.
[[nodiscard]] bool PressioneTastoEsc(Workstation& workstation);

}  // namespace orlo
