#pragma once

#include "jet/row.h"

namespace jet
{

/// A row in parts that can be changed. What belongs to no column of today, left by deleted ones, is
/// carried along as it is.
class RowImage
{
public:
    /// Every value Null, Yes/No False.
    explicit RowImage(const TableLayout& table);
    /// Errors: kDamagedFile.
    RowImage(const TableLayout& table, const Row& row);

    bool Bit(std::size_t id) const { return bits_[id]; }
    /// The bytes of a column that is not Yes/No, nothing when it is Null.
    std::optional<Bytes> Field(const ColumnLayout& column) const;

    void SetBit(std::size_t id, bool set) { bits_[id] = set; }
    /// REQUIRES: a fixed column gets as many bytes as it is long.
    void SetField(const ColumnLayout& column, Bytes bytes);
    void SetNull(const ColumnLayout& column);

    /// The bytes of the row, as the table's rows are today. Errors: kRecordTooLong.
    std::vector<std::uint8_t> Join(const Format& format) const;

private:
    void AppendSlots(const Format& format, std::vector<std::uint8_t>& row) const;
    std::size_t MaskBytes() const { return (bits_.size() + 7) / 8; }

    std::vector<bool> bits_;  // the null mask, by column id
    std::vector<std::uint8_t> fixed_;
    std::vector<std::vector<std::uint8_t>> slots_;
};

}  // namespace jet
