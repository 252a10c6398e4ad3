#pragma once

#include "jet/table_definition.h"

namespace jetfile
{

/// For each of the table's logical indexes, whether it belongs to a relation between tables. The
/// engine treats such an index like any other and does not keep what it is for.
/// Errors: kDamagedFile, kDiskError.
std::vector<bool> RelationIndexes(jet::PageFile& file, const jet::TableLayout& table);

}  // namespace jetfile
