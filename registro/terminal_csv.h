#pragma once

#include "jet/database.h"
#include "registro/terminal_columns.h"

#include <QString>

#include <vector>

namespace orlo::registro
{

/// The terminals as CSV: a header with the columns' names, then a line each.
QString TerminalsAsCsv(const std::vector<TerminalValues>& terminals);

struct ImportCount {
    int added = 0;
    int changed = 0;
};

/// Stores the terminals of such a text, in a table that first gets the columns it lacks. The
/// columns may come in any order, and those that are not in it stay as they are, or get their
/// defaults in a new terminal; a terminal that is not in it stays. A cell that already says what
/// the register holds is not checked, so that what was exported can always be imported. Throws
/// Failure with line and column, jet::Error; some terminals may then be stored.
ImportCount StoreCsv(jet::Database& database, const QString& text);

}  // namespace orlo::registro
