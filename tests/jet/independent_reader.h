#pragma once

#include "tests/jet/sample_files.h"

namespace jet::test
{

/// Compares every value of a table with what mdb-export, a reader of other people, gives. It lists
/// a moved row where its data are, so its order holds only without such rows. Gives the number of
/// values compared; a difference fails the test.
std::size_t CompareWithExport(const std::filesystem::path& file, const TableInfo& table,
                              Recordset& rows, bool same_order);

}  // namespace jet::test
