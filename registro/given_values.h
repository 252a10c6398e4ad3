#pragma once

#include "registro/terminal_columns.h"

#include <map>

namespace orlo::registro
{

using GivenValues = std::map<Column, jet::Value>;

/// Puts the values into a terminal. A model that is new to it brings its defaults along for what is
/// still empty; a value that is given, a 0 too, comes before any default.
void ApplyGiven(TerminalValues& terminal, const GivenValues& given);

}  // namespace orlo::registro
