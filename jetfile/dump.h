#pragma once

#include "jet/recordset.h"
#include "jetfile/schema.h"

#include <iosfwd>

namespace jetfile
{

/// A table as JSON, a line of its columns and indexes, then one per row in the order of the lines,
/// which does not depend on where in the file the rows are:
///
///     {"table": "Output", "rows": 1, "columns": [{"name": "TipoOutput", ...}], "indexes": []}
///     {"in": "Output", "row": {"TipoOutput": 1}}
void DumpTable(const TableSchema& table, jet::Recordset& rows, std::ostream& out);

}  // namespace jetfile
