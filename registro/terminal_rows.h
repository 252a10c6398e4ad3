#pragma once

#include "jet/database.h"
#include "registro/terminal_columns.h"

#include <vector>

namespace orlo::registro
{

// Table TERMINALI row by row. All throw jet::Error. Rows are looked for one by one and not by the
// index, which an old register may lack.

/// All rows by terminal number, also those outside 1..32.
std::vector<TerminalValues> ReadTerminals(jet::Database& database);

/// Gives an older table the columns that it lacks. With `Ritardo` the first row, and only that one,
/// receives half a second, as when the main window adds the column.
void AddMissingColumns(jet::Database& database);

/// Changes the row of that terminal, or adds it.
void StoreTerminal(jet::Database& database, const TerminalValues& values);

/// False when there is no such terminal.
bool RemoveTerminal(jet::Database& database, int number);

}  // namespace orlo::registro
