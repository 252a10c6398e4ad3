#pragma once

#include "registro/terminal_columns.h"

#include <QString>

#include <vector>

namespace orlo::registro
{

/// The terminals for a person, a line each below a heading, in columns as wide as they need.
QString TerminalList(const std::vector<TerminalValues>& terminals);

}  // namespace orlo::registro
