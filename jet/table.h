#pragma once

#include "jet/data_page.h"
#include "jet/row.h"
#include "jet/table_definition.h"

#include <memory>

namespace jet
{

/// A table's rows in the file.
class Table
{
public:
    /// Errors: kDamagedFile, kDiskError, also from the other members.
    Table(PageFile& file, std::shared_ptr<const TableLayout> definition);

    PageFile& File() const { return file_; }
    const TableLayout& Definition() const { return *definition_; }
    const std::shared_ptr<const TableLayout>& SharedDefinition() const { return definition_; }
    /// Ascending.
    const std::vector<std::uint32_t>& DataPages() const { return data_pages_; }

    DataPage ReadDataPage(std::uint32_t page) const;

    /// The row whose home is there, wherever it has been moved to.
    Row ReadRow(RowPointer home) const;

    /// Whether a row still has its home there.
    bool HasRow(RowPointer home) const;

    /// Reads the list of data pages again, and takes a definition that has changed.
    void Reload(std::shared_ptr<const TableLayout> definition);

    /// Rows in the directories of the data pages. The count in the definition is not always right.
    std::size_t CountRows() const;

private:
    PageFile& file_;
    std::shared_ptr<const TableLayout> definition_;
    RowShape shape_;
    std::vector<std::uint32_t> data_pages_;
};

/// Whether a directory entry stands for a row of the table.
inline bool IsHome(RowState state)
{
    return state == RowState::Live || state == RowState::Moved;
}

}  // namespace jet
