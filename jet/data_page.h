#pragma once

#include "jet/page_file.h"

namespace jet
{

/// The two high bits of a directory entry.
enum class RowState {
    Live = 0,
    Moved = 1,      ///< counts as a row, but its bytes begin with a pointer to the real ones
    MovedData = 2,  ///< the real ones: reached through the pointer only
    Deleted = 3,
};

/// A row as it lies on its page, which it keeps alive.
struct StoredRow {
    Page page;
    RowState state;
    Bytes bytes;
};

/// A page of rows: table data, long values or usage maps.
class DataPage
{
public:
    /// Owner of the pages of long values: "LVAL".
    static constexpr std::uint32_t kLongValueOwner = 0x4C41564C;

    /// Errors: kDamagedFile when it is no data page or its directory does not fit.
    DataPage(const Format& format, Page page);

    std::uint32_t Owner() const;
    std::size_t RowCount() const { return row_count_; }
    RowState State(std::size_t row) const;

    /// Errors: kDamagedFile when there is no such row or it lies outside the page.
    StoredRow Row(std::size_t row) const;

private:
    std::uint16_t Entry(std::size_t row) const;

    const Format* format_;
    Page page_;
    std::size_t row_count_;
};

}  // namespace jet
