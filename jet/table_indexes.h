#pragma once

#include "jet/row_keys.h"

namespace jet
{

/// Keeps all indexes of a table in step with its rows. Inside PageFile::Change only.
/// Errors: kDuplicateKey, kNullInKey; kNotSupported when a key cannot be built; kDamagedFile,
/// kDiskFull, kDiskError.
class TableIndexes
{
public:
    /// The definition must outlive it.
    TableIndexes(PageFile& file, const TableLayout& table) : file_(file), table_(table) {}

    // Each gives the number of new distinct keys per real index, 0 or 1.

    std::vector<int> Insert(const Row& row, RowPointer home);
    std::vector<int> Update(const Row& before, const Row& after, RowPointer home);
    void Erase(const Row& row, RowPointer home);

private:
    RowKey CheckedKey(const RealIndex& index, const Row& row);
    int InsertKey(const RealIndex& index, const RowKey& key, RowPointer home);
    void EraseKey(const RealIndex& index, const RowKey& key, RowPointer home);
    std::u16string_view NameOf(const RealIndex& index) const;

    PageFile& file_;
    const TableLayout& table_;
};

}  // namespace jet
