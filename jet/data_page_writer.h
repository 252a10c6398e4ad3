#pragma once

#include "jet/data_page.h"

namespace jet
{

/// Changes a data page in memory. Rows lie without gaps from the end of the page on, in the order
/// of their numbers; a number once given stays, deleted or not.
class DataPageWriter
{
public:
    /// Row numbers have one byte in pointers.
    static constexpr std::size_t kMostRows = 255;

    /// Errors: kDamagedFile when any row lies outside the page or out of order.
    DataPageWriter(const Format& format, const Page& page);

    static PageImage Empty(const Format& format, std::uint32_t owner);

    std::size_t RowCount() const { return starts_.size(); }
    /// Between the directory and the lowest row.
    std::size_t FreeSpace() const;
    bool HasRoomFor(std::size_t row_bytes) const;
    /// Errors: kDamagedFile when there is no such row.
    Bytes Row(std::size_t row) const;
    RowState State(std::size_t row) const { return states_[row]; }

    /// REQUIRES: HasRoomFor(bytes.size()).
    std::uint16_t Add(Bytes bytes, RowState state);
    /// The lower rows follow when the length changes.
    /// REQUIRES: the row grows by no more than FreeSpace().
    void Replace(std::size_t row, Bytes bytes, RowState state);
    /// The entry stays, with length 0.
    void Erase(std::size_t row);

    PageImage Take();

private:
    std::size_t Lowest() const { return starts_.empty() ? content_.size() : starts_.back(); }

    const Format* format_;
    std::uint32_t number_;
    PageImage content_;
    std::vector<std::size_t> starts_;
    std::vector<RowState> states_;
};

}  // namespace jet
