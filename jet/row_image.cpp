#include "jet/row_image.h"

#include "jet/failure.h"

#include <algorithm>

// The layout of a row is that of row.cpp.

namespace jet
{

namespace
{

std::size_t FixedBytes(const TableLayout& table)
{
    std::size_t bytes = 0;
    for (const ColumnLayout& column : table.columns) {
        if (column.fixed && column.type != ColumnType::YesNo) {
            bytes = std::max(bytes, std::size_t{column.fixed_offset} + column.length);
        }
    }
    return bytes;
}

/// Bytes of an offset or a count in a row.
std::size_t NumberWidth(const Format& format)
{
    return format.unicode ? 2 : 1;
}

void AppendNumber(std::size_t number, std::size_t width, std::vector<std::uint8_t>& out)
{
    for (std::size_t i = 0; i < width; ++i) {
        out.push_back(static_cast<std::uint8_t>(number >> (8 * i) & 0xFF));
    }
}

// Jump byte j, written from the last one to the first, is the number of the first offset that has
// passed 256 x (j + 1), or FF when only the trailer of the row does. The jump bytes count as part
// of the row, so they may call for one more of themselves.
void AppendJumpTable(const std::vector<std::size_t>& offsets, std::size_t bytes_without,
                     std::vector<std::uint8_t>& out)
{
    std::size_t jumps = (bytes_without - 1) / 256;
    jumps = (bytes_without + jumps - 1) / 256;
    for (std::size_t j = jumps; j-- > 0;) {
        const auto passed = std::ranges::find_if(
            offsets, [&](std::size_t offset) { return offset >= 256 * (j + 1); });
        out.push_back(passed == offsets.end()
                          ? std::uint8_t{0xFF}
                          : static_cast<std::uint8_t>(passed - offsets.begin()));
    }
}

}  // namespace

RowImage::RowImage(const TableLayout& table)
    : bits_(table.columns_ever, false), fixed_(FixedBytes(table), 0), slots_(table.variable_slots)
{
}

RowImage::RowImage(const TableLayout& table, const Row& row) : RowImage(table)
{
    for (std::size_t id = 0; id < bits_.size(); ++id) {
        bits_[id] = row.Bit(id);
    }
    const Bytes fixed = row.FixedPart();
    fixed_.resize(std::max(fixed_.size(), fixed.size()), 0);
    std::ranges::copy(fixed, fixed_.begin());
    for (std::size_t slot = 0; slot < row.SlotCount(); ++slot) {
        const Bytes bytes = row.Slot(slot);
        slots_[slot].assign(bytes.begin(), bytes.end());
    }
}

std::optional<Bytes> RowImage::Field(const ColumnLayout& column) const
{
    if (!bits_[column.id]) {
        return std::nullopt;
    }
    return column.fixed ? Bytes(fixed_).subspan(column.fixed_offset, column.length)
                        : Bytes(slots_[column.slot]);
}

void RowImage::SetField(const ColumnLayout& column, Bytes bytes)
{
    assert(!column.fixed || bytes.size() == column.length);
    if (column.fixed) {
        std::ranges::copy(bytes, fixed_.begin() + column.fixed_offset);
    } else {
        slots_[column.slot].assign(bytes.begin(), bytes.end());
    }
    bits_[column.id] = true;
}

void RowImage::SetNull(const ColumnLayout& column)
{
    if (column.fixed) {
        std::fill_n(fixed_.begin() + column.fixed_offset, column.length, std::uint8_t{0});
    } else {
        slots_[column.slot].clear();
    }
    bits_[column.id] = false;
}

void RowImage::AppendSlots(const Format& format, std::vector<std::uint8_t>& row) const
{
    const std::size_t width = NumberWidth(format);
    std::vector<std::size_t> offsets;
    for (const auto& slot : slots_) {
        offsets.push_back(row.size());
        row.insert(row.end(), slot.begin(), slot.end());
    }
    offsets.push_back(row.size());
    if (row.size() > format.longest_row) {
        FailRecordTooLong();
    }
    for (std::size_t i = offsets.size(); i-- > 0;) {
        AppendNumber(width == 1 ? offsets[i] % 256 : offsets[i], width, row);
    }
    if (!format.unicode) {
        AppendJumpTable(offsets, row.size() + width + MaskBytes(), row);
    }
    AppendNumber(slots_.size(), width, row);
}

std::vector<std::uint8_t> RowImage::Join(const Format& format) const
{
    std::vector<std::uint8_t> row;
    AppendNumber(bits_.size(), NumberWidth(format), row);
    row.insert(row.end(), fixed_.begin(), fixed_.end());
    if (!slots_.empty()) {
        AppendSlots(format, row);
    }
    const std::size_t mask = row.size();
    row.resize(mask + MaskBytes(), 0);
    for (std::size_t id = 0; id < bits_.size(); ++id) {
        if (bits_[id]) {
            row[mask + id / 8] = static_cast<std::uint8_t>(row[mask + id / 8] | 1u << id % 8);
        }
    }
    if (row.size() > format.longest_row) {
        FailRecordTooLong();
    }
    return row;
}

}  // namespace jet
