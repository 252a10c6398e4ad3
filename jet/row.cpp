#include "jet/row.h"

#include "jet/failure.h"

#include <algorithm>
#include <utility>

// A row, in the order of its bytes. The column count and the entries have 1 byte in Jet 3, 2 in
// Jet 4; slot i lies between offset[i] and offset[i + 1], counted from the start of the row.
//
//  column count | fixed part | variable data | end of data, offset[v-1], ... offset[0]
//  | jump table, Jet 3 only | v | null mask
//
// Without a variable slot there is nothing between the fixed part and the mask. A row is not
// rewritten when a column is added: it goes on counting the columns and slots of its time.

namespace jet
{

RowShape ShapeOf(const TableLayout& table)
{
    RowShape shape{table.columns_ever, table.variable_slots, table.columns_ever};
    for (const ColumnLayout& column : table.columns) {
        if (!column.fixed) {
            shape.first_variable_id = std::min<std::size_t>(shape.first_variable_id, column.id);
        }
    }
    return shape;
}

Row::Row(const Format& format, const RowShape& shape, StoredRow stored)
    : stored_(std::move(stored)), count_bytes_(format.unicode ? 2 : 1)
{
    const Bytes bytes = stored_.bytes;
    if (bytes.size() < count_bytes_) {
        Fail();
    }
    columns_ = format.unicode ? U16(bytes, 0) : bytes[0];
    const std::size_t mask_bytes = (columns_ + 7) / 8;
    if (columns_ > shape.columns_ever || bytes.size() < count_bytes_ + mask_bytes) {
        Fail();
    }
    mask_ = bytes.size() - mask_bytes;
    fixed_end_ = mask_;
    if (columns_ > shape.first_variable_id ||
        (columns_ == shape.columns_ever && shape.variable_slots > 0)) {
        ReadVariablePart(format, shape);
    }
}

void Row::ReadVariablePart(const Format& format, const RowShape& shape)
{
    const Bytes bytes = stored_.bytes;
    const std::size_t jump_bytes = format.unicode ? 0 : (bytes.size() - 1) / 256;
    // One step backwards over the part of the row that nothing else has claimed.
    std::size_t end = mask_;
    const auto step_back = [&](std::size_t size) {
        if (end < count_bytes_ + size) {
            Fail();
        }
        end -= size;
    };
    step_back(count_bytes_);
    slots_ = format.unicode ? U16(bytes, end) : bytes[end];
    if (slots_ > shape.variable_slots) {
        Fail();
    }
    jumps_end_ = end;
    step_back(jump_bytes);
    offsets_end_ = end;
    step_back(count_bytes_ * (slots_ + 1));
    // When only the trailer makes the row pass a multiple of 256, the last jump byte is a dummy.
    jumps_ = std::min(jump_bytes, end / 256);
    if (VariableOffset(slots_) > end || VariableOffset(0) < count_bytes_) {
        Fail();
    }
    fixed_end_ = std::min(VariableOffset(0), end);
}

std::size_t Row::VariableOffset(std::size_t entry) const
{
    const std::size_t at = offsets_end_ - count_bytes_ * (entry + 1);
    if (count_bytes_ == 2) {
        return U16(stored_.bytes, at);
    }
    return stored_.bytes[at] + 256 * JumpsBefore(entry);
}

// Jump byte j, the last one first, is the number of the first entry that has passed 256 x (j + 1).
std::size_t Row::JumpsBefore(std::size_t entry) const
{
    std::size_t passed = 0;
    while (passed < jumps_ && stored_.bytes[jumps_end_ - 1 - passed] <= entry) {
        ++passed;
    }
    return passed;
}

bool Row::Bit(std::size_t id) const
{
    return id < columns_ && (stored_.bytes[mask_ + id / 8] >> id % 8 & 1) != 0;
}

std::optional<Bytes> Row::Field(const ColumnLayout& column) const
{
    if (!Bit(column.id)) {
        return std::nullopt;
    }
    if (column.fixed) {
        const std::size_t start = count_bytes_ + column.fixed_offset;
        if (start + column.length > fixed_end_) {
            Fail();
        }
        return stored_.bytes.subspan(start, column.length);
    }
    if (column.slot >= slots_) {
        return std::nullopt;
    }
    return Slot(column.slot);
}

Bytes Row::Slot(std::size_t slot) const
{
    const std::size_t start = VariableOffset(slot);
    const std::size_t end = VariableOffset(slot + 1);
    if (start > end || end > VariableOffset(slots_)) {
        Fail();
    }
    return stored_.bytes.subspan(start, end - start);
}

void Row::Fail() const
{
    FailDamaged(PageNumber(), "riga illeggibile");
}

}  // namespace jet
