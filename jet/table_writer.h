#pragma once

#include "jet/row_image.h"
#include "jet/table.h"

namespace jet
{

/// Changes a table's rows with all that goes with them: pages and their maps, indexes, counters,
/// long values. Inside PageFile::Change only.
/// Errors: kDuplicateKey, kNullInKey, kNotSupported, kRecordTooLong, kDamagedFile, kDiskFull,
/// kDiskError.
class TableWriter
{
public:
    /// The table must outlive the writer.
    explicit TableWriter(const Table& table) : table_(table) {}

    /// Fills autonumbers in. Gives the new row's home.
    RowPointer Insert(RowImage image);
    void Update(RowPointer home, const RowImage& image);
    void Erase(RowPointer home);

private:
    PageFile& File() const { return table_.File(); }
    const TableLayout& Layout() const { return table_.Definition(); }

    const Table& table_;
};

}  // namespace jet
