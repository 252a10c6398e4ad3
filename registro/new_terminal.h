#pragma once

#include "registro/terminal_columns.h"

namespace orlo::registro
{

/// A terminal as the main window would begin it: active, first mode and function, on COM1.
TerminalValues NewTerminal();

/// Speed, retries, priorities and delay that are still empty or 0 receive the model's defaults, as
/// when the model is picked in the main window. Nothing happens when TIPO is no known model.
void FillModelDefaults(TerminalValues& values);

}  // namespace orlo::registro
