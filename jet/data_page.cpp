#include "jet/data_page.h"

#include "jet/failure.h"

#include <utility>

//  Jet 3  Jet 4  size  data page
//  0      0      2     type 1, 1
//  2      2      2     free space
//  4      4      4     owner: definition page of the table; "LVAL" for long values
//  8      12     2     number of rows
//  10     14     2     per row: start of the row in 13 bits, state in the two highest
//
// Rows are laid down from the end of the page: row 0 ends there, row n ends where row n-1 starts.

namespace jet
{

namespace
{

constexpr std::size_t kOwner = 4;
constexpr std::uint16_t kStartMask = 0x1FFF;
constexpr int kStateShift = 14;

}  // namespace

DataPage::DataPage(const Format& format, Page page)
    : format_(&format),
      page_(std::move(page)),
      row_count_(U16(page_.Content(), format.data_page.row_count))
{
    if (page_.Content()[0] != kDataPage) {
        FailDamaged(page_.Number(), "non è una pagina di dati");
    }
    if (format.data_page.directory + 2 * row_count_ > format.page_bytes) {
        FailDamaged(page_.Number(), "elenco delle righe troppo lungo");
    }
}

std::uint32_t DataPage::Owner() const
{
    return U32(page_.Content(), kOwner);
}

std::uint16_t DataPage::Entry(std::size_t row) const
{
    return U16(page_.Content(), format_->data_page.directory + 2 * row);
}

RowState DataPage::State(std::size_t row) const
{
    return static_cast<RowState>(Entry(row) >> kStateShift);
}

StoredRow DataPage::Row(std::size_t row) const
{
    if (row >= row_count_) {
        FailDamaged(page_.Number(), "rinvio a una riga che non c'è");
    }
    const std::size_t start = Entry(row) & kStartMask;
    const std::size_t end = row == 0 ? format_->page_bytes : Entry(row - 1) & kStartMask;
    if (start < format_->data_page.directory + 2 * row_count_ || start > end ||
        end > format_->page_bytes) {
        FailDamaged(page_.Number(), "riga fuori dalla pagina");
    }
    return {page_, State(row), page_.Content().subspan(start, end - start)};
}

}  // namespace jet
