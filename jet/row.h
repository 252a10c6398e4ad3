#pragma once

#include "jet/data_page.h"
#include "jet/table_definition.h"

#include <optional>

namespace jet
{

/// What a row must be compared with to be understood: taken from the table's definition.
struct RowShape {
    std::size_t columns_ever = 0;
    std::size_t variable_slots = 0;
    std::size_t first_variable_id = 0;  ///< smallest id of a variable column, else columns_ever
};

RowShape ShapeOf(const TableLayout& table);

/// A row taken apart, without its values being copied.
class Row
{
public:
    /// Errors: kDamagedFile when the parts do not fit in the row.
    Row(const Format& format, const RowShape& shape, StoredRow stored);

    /// The null-mask bit of a column: not null, or the value itself for Yes/No.
    /// False for a column that is younger than the row.
    bool Bit(std::size_t id) const;

    /// The bytes of any other column, nothing when it is null. Errors: kDamagedFile.
    std::optional<Bytes> Field(const ColumnLayout& column) const;

    /// The fixed part, behind the column count.
    Bytes FixedPart() const
    {
        return stored_.bytes.subspan(count_bytes_, fixed_end_ - count_bytes_);
    }
    std::size_t ColumnCount() const { return columns_; }
    std::size_t SlotCount() const { return slots_; }
    /// Errors: kDamagedFile.
    Bytes Slot(std::size_t slot) const;

    std::uint32_t PageNumber() const { return stored_.page.Number(); }

private:
    void ReadVariablePart(const Format& format, const RowShape& shape);
    std::size_t VariableOffset(std::size_t entry) const;
    std::size_t JumpsBefore(std::size_t entry) const;
    [[noreturn]] void Fail() const;

    StoredRow stored_;
    std::size_t count_bytes_;      // width of the column count and of an entry
    std::size_t columns_ = 0;      // columns that the row knows
    std::size_t mask_ = 0;         // offset of the null mask
    std::size_t slots_ = 0;        // variable slots that the row knows
    std::size_t offsets_end_ = 0;  // the offset table ends here, offset[0] last
    std::size_t jumps_ = 0;        // Jet 3: jump bytes, those in use
    std::size_t jumps_end_ = 0;
    std::size_t fixed_end_ = 0;
};

}  // namespace jet
