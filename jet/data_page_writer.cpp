#include "jet/data_page_writer.h"

#include "jet/failure.h"

#include <algorithm>
#include <utility>

// The layout is that of data_page.cpp.

namespace jet
{

namespace
{

constexpr std::size_t kFreeSpace = 2;
constexpr std::size_t kOwner = 4;
constexpr int kStateShift = 14;
constexpr std::size_t kEntryBytes = 2;

}  // namespace

DataPageWriter::DataPageWriter(const Format& format, const Page& page)
    : format_(&format),
      number_(page.Number()),
      content_(page.Content().begin(), page.Content().end())
{
    const DataPage rows(format, page);
    std::size_t end = content_.size();
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        end -= rows.Row(row).bytes.size();
        starts_.push_back(end);
        states_.push_back(rows.State(row));
    }
}

PageImage DataPageWriter::Empty(const Format& format, std::uint32_t owner)
{
    PageImage page(format.page_bytes, 0);
    page[0] = kDataPage;
    page[1] = 1;
    PutU16(page, kFreeSpace, format.page_bytes - format.data_page.directory);
    PutU32(page, kOwner, owner);
    return page;
}

std::size_t DataPageWriter::FreeSpace() const
{
    return Lowest() - format_->data_page.directory - kEntryBytes * starts_.size();
}

bool DataPageWriter::HasRoomFor(std::size_t row_bytes) const
{
    return starts_.size() < kMostRows && row_bytes + kEntryBytes <= FreeSpace();
}

Bytes DataPageWriter::Row(std::size_t row) const
{
    if (row >= starts_.size()) {
        FailDamaged(number_, "rinvio a una riga che non c'è");
    }
    const std::size_t end = row == 0 ? content_.size() : starts_[row - 1];
    return Bytes(content_).subspan(starts_[row], end - starts_[row]);
}

std::uint16_t DataPageWriter::Add(Bytes bytes, RowState state)
{
    assert(HasRoomFor(bytes.size()));
    starts_.push_back(Lowest() - bytes.size());
    states_.push_back(state);
    std::ranges::copy(bytes, content_.begin() + static_cast<std::ptrdiff_t>(starts_.back()));
    return static_cast<std::uint16_t>(starts_.size() - 1);
}

void DataPageWriter::Replace(std::size_t row, Bytes bytes, RowState state)
{
    const std::size_t length = Row(row).size();
    assert(bytes.size() <= length + FreeSpace());
    const PageImage kept(bytes.begin(), bytes.end());  // the bytes may lie on this very page
    const std::size_t start = starts_[row];
    const std::size_t new_start = start + length - kept.size();
    const auto at = [&](std::size_t offset) {
        return content_.begin() + static_cast<std::ptrdiff_t>(offset);
    };
    const std::size_t lowest = Lowest();
    if (new_start < start) {
        std::copy(at(lowest), at(start), at(lowest - (start - new_start)));
    } else {
        std::copy_backward(at(lowest), at(start), at(new_start));
    }
    std::ranges::copy(kept, at(new_start));
    for (std::size_t i = row; i < starts_.size(); ++i) {
        starts_[i] = starts_[i] + new_start - start;
    }
    states_[row] = state;
}

void DataPageWriter::Erase(std::size_t row)
{
    Replace(row, {}, RowState::Deleted);
}

PageImage DataPageWriter::Take()
{
    PutU16(content_, kFreeSpace, FreeSpace());
    PutU16(content_, format_->data_page.row_count, starts_.size());
    for (std::size_t row = 0; row < starts_.size(); ++row) {
        PutU16(content_, format_->data_page.directory + kEntryBytes * row,
               starts_[row] | static_cast<std::size_t>(states_[row]) << kStateShift);
    }
    return std::move(content_);
}

}  // namespace jet
