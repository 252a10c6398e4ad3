#pragma once

#include "jet/recordset.h"
#include "registry/terminal_record.h"

namespace orlo
{

/// Loads the current row's columns into a slot, `Terminale` apart: a value that is Null leaves its
/// field as it was. Throws jet::Error; columns before the one that failed are then loaded.
void LoadTerminalRow(jet::Recordset& row, TerminalRecord& slot);

/// Writes the slot's 23 columns, all but `Terminale`, into the current row. Throws jet::Error,
/// whose text names the column that cannot hold its value; the row is then as it was.
void StoreTerminalRow(jet::Recordset& row, const TerminalRecord& slot);

}  // namespace orlo
