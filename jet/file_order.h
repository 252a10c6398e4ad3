#pragma once

#include "jet/row_order.h"
#include "jet/table.h"

namespace jet
{

/// The file's own order: data pages by number, rows by number; a moved row at its home position.
class FileOrder final : public RowOrder
{
public:
    /// The table must outlive the order.
    explicit FileOrder(Table& table) : table_(table) {}

    std::optional<RowPointer> First() override;
    std::optional<RowPointer> Last() override;
    std::optional<RowPointer> Next() override;
    std::optional<RowPointer> Previous() override;
    void Refresh() override;

private:
    std::optional<RowPointer> Forward();
    std::optional<RowPointer> Backward();
    std::size_t LoadPage();

    Table& table_;
    std::optional<DataPage> page_;
    std::size_t page_index_ = 0;  // place in the table's list of data pages
    std::uint32_t number_ = 0;    // the page there
    std::size_t row_ = 0;         // place in the page
};

}  // namespace jet
