#include "jet/table.h"

#include "jet/failure.h"
#include "jet/usage_map.h"

#include <algorithm>
#include <utility>

namespace jet
{

Table::Table(PageFile& file, std::shared_ptr<const TableLayout> definition)
    : file_(file),
      definition_(std::move(definition)),
      shape_(ShapeOf(*definition_)),
      data_pages_(ReadUsageMap(file, definition_->data_map))
{
}

DataPage Table::ReadDataPage(std::uint32_t page) const
{
    DataPage data(file_.Format(), file_.Read(page));
    if (data.Owner() != definition_->page) {
        FailDamaged(page, "pagina di un'altra tabella");
    }
    return data;
}

Row Table::ReadRow(RowPointer home) const
{
    StoredRow stored = ReadDataPage(home.page).Row(home.row);
    if (stored.state == RowState::Moved) {
        if (stored.bytes.size() < 4) {
            FailDamaged(home.page, "riga spostata senza rinvio");
        }
        const RowPointer target = RowPointerAt(stored.bytes, 0);
        stored = ReadDataPage(target.page).Row(target.row);
        if (stored.state != RowState::MovedData) {
            FailDamaged(target.page, "riga spostata che non c'è");
        }
    } else if (stored.state != RowState::Live) {
        FailDamaged(home.page, "rinvio a una riga che non c'è");
    }
    return Row(file_.Format(), shape_, std::move(stored));
}

bool Table::HasRow(RowPointer home) const
{
    if (!std::ranges::binary_search(data_pages_, home.page)) {
        return false;
    }
    const DataPage page = ReadDataPage(home.page);
    return home.row < page.RowCount() && IsHome(page.State(home.row));
}

void Table::Reload(std::shared_ptr<const TableLayout> definition)
{
    data_pages_ = ReadUsageMap(file_, definition->data_map);
    definition_ = std::move(definition);
    shape_ = ShapeOf(*definition_);
}

std::size_t Table::CountRows() const
{
    std::size_t count = 0;
    for (const std::uint32_t number : data_pages_) {
        const DataPage page = ReadDataPage(number);
        for (std::size_t row = 0; row < page.RowCount(); ++row) {
            if (IsHome(page.State(row))) {
                ++count;
            }
        }
    }
    return count;
}

}  // namespace jet
