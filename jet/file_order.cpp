#include "jet/file_order.h"

#include <algorithm>

namespace jet
{

std::optional<RowPointer> FileOrder::First()
{
    page_index_ = 0;
    row_ = 0;
    page_.reset();
    return Forward();
}

std::optional<RowPointer> FileOrder::Last()
{
    page_index_ = table_.DataPages().size();
    row_ = 0;
    page_.reset();
    return Backward();
}

std::optional<RowPointer> FileOrder::Next()
{
    ++row_;
    return Forward();
}

std::optional<RowPointer> FileOrder::Previous()
{
    return Backward();
}

// The first row at or behind the place.
std::optional<RowPointer> FileOrder::Forward()
{
    for (; page_index_ < table_.DataPages().size(); ++page_index_, row_ = 0, page_.reset()) {
        for (const std::size_t rows = LoadPage(); row_ < rows; ++row_) {
            if (IsHome(page_->State(row_))) {
                return RowPointer{table_.DataPages()[page_index_],
                                  static_cast<std::uint16_t>(row_)};
            }
        }
    }
    return std::nullopt;
}

// The last row before the place.
std::optional<RowPointer> FileOrder::Backward()
{
    while (true) {
        while (row_ > 0) {
            --row_;
            if (IsHome(page_->State(row_))) {
                return RowPointer{table_.DataPages()[page_index_],
                                  static_cast<std::uint16_t>(row_)};
            }
        }
        if (page_index_ == 0) {
            return std::nullopt;
        }
        --page_index_;
        page_.reset();
        row_ = LoadPage();
    }
}

void FileOrder::Refresh()
{
    const auto& pages = table_.DataPages();
    page_index_ =
        static_cast<std::size_t>(std::ranges::lower_bound(pages, number_) - pages.begin());
    page_.reset();
    if (page_index_ == pages.size() || pages[page_index_] != number_) {
        row_ = 0;  // its page has gone as well
    } else {
        LoadPage();
    }
}

std::size_t FileOrder::LoadPage()
{
    if (!page_) {
        number_ = table_.DataPages()[page_index_];
        page_.emplace(table_.ReadDataPage(table_.DataPages()[page_index_]));
    }
    return page_->RowCount();
}

}  // namespace jet
