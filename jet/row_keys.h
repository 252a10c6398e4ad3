#pragma once

#include "jet/index_key.h"
#include "jet/row.h"

namespace jet
{

/// A row's key in one index.
struct RowKey {
    KeyResult result = KeyResult::Built;
    KeyBytes bytes;  ///< unspecified unless Built
    bool any_null = false;
    bool all_null = true;
};

/// Errors: kDamagedFile, kDiskError.
RowKey KeyOfRow(PageFile& file, const TableLayout& table, const RealIndex& index, const Row& row);

/// Whether the index has an entry for the row.
inline bool IsListed(const RealIndex& index, const RowKey& key)
{
    return !(index.ignore_nulls && key.all_null);
}

/// Whether the two rows have the same bytes in every column of the index.
bool SameKeyColumns(const TableLayout& table, const RealIndex& index, const Row& one,
                    const Row& other);

}  // namespace jet
