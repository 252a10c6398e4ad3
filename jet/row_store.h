#pragma once

#include "jet/data_page_writer.h"
#include "jet/table_definition.h"

namespace jet
{

/// Where a table's rows lie: finds room for them and moves them when they outgrow their page. Knows
/// nothing of what is in a row. Inside PageFile::Change only.
/// Errors: kDamagedFile, kDiskFull, kDiskError.
class RowStore
{
public:
    /// The definition must outlive the store.
    RowStore(PageFile& file, const TableLayout& table) : file_(file), table_(table) {}

    RowPointer Add(Bytes row) { return Place(row, RowState::Live); }

    /// The row keeps its home: when it no longer fits there, its bytes move to another page and the
    /// home keeps a pointer to them.
    void Replace(RowPointer home, Bytes row);

    /// The row, and what it has been moved to.
    void Erase(RowPointer home);

private:
    RowPointer Place(Bytes row, RowState state);
    DataPageWriter Load(std::uint32_t page) const;
    void Store(std::uint32_t page, DataPageWriter& content);
    bool ReplaceOnPage(RowPointer at, Bytes row);
    void PointTo(RowPointer home, RowPointer target);
    RowPointer Target(RowPointer home) const;
    void EraseEntry(RowPointer at);

    PageFile& file_;
    const TableLayout& table_;
};

}  // namespace jet
