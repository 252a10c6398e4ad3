#include "jet/column_encoder.h"
#include "jet/failure.h"
#include "jet/index_tree.h"
#include "jet/row_keys.h"
#include "jet/table_cursor.h"
#include "jet/table_writer.h"

// The changes that a cursor makes.

namespace jet
{

void TableCursor::RequireWritable() const
{
    if (File().Mode() == OpenMode::ReadOnly) {
        FailReadOnly();
    }
}

void TableCursor::Edit()
{
    RequireWritable();
    Synchronise();
    if (!row_) {
        FailNoCurrentRecord();
    }
    pending_ = Pending{false, RowImage(Layout(), *row_), {}};
}

void TableCursor::AddNew()
{
    RequireWritable();
    Synchronise();
    pending_ = Pending{true, RowImage(Layout()), {}};
}

void TableCursor::SetField(std::u16string_view name, const Value& value)
{
    const std::size_t place = ColumnPlace(name);
    if (!pending_) {
        FailNoEditBegun();
    }
    const ColumnLayout& column = Layout().columns[place];
    if (column.autonumber) {
        FailNotSupported(column.name);
    }
    SetValue(File().Format(), column, value, pending_->image);
    pending_->set.emplace_back(place, value);
}

// Another cursor may have changed the row since Edit: what was not set here stays as it is now.
RowImage TableCursor::WithValuesSet(RowImage image) const
{
    for (const auto& [place, value] : pending_->set) {
        SetValue(File().Format(), Layout().columns[place], value, image);
    }
    return image;
}

void TableCursor::Update()
{
    if (!pending_) {
        FailNoEditBegun();
    }
    Synchronise();
    if (pending_->adding) {
        const RowImage image = WithValuesSet(RowImage(Layout()));
        File().Change([&] { TableWriter(table_).Insert(image); });
    } else if (row_) {
        UpdateRow(WithValuesSet(RowImage(Layout(), *row_)));
    } else {
        FailNoCurrentRecord();
    }
    pending_.reset();
}

// In the order of an index the place is the row's entry, which may have become another.
void TableCursor::UpdateRow(const RowImage& image)
{
    File().Change([&] { TableWriter(table_).Update(home_, image); });
    if (index_order_ != nullptr) {
        const RealIndex& index = Layout().real_indexes[*index_];
        const RowKey key = KeyOfRow(File(), Layout(), index, table_.ReadRow(home_));
        if (key.result == KeyResult::Built && IsListed(index, key)) {
            index_order_->StandOn(LeafEntry(key.bytes, home_));
        }
    }
}

void TableCursor::Delete()
{
    RequireWritable();
    Synchronise();
    if (!row_) {
        FailNoCurrentRecord();
    }
    pending_.reset();
    File().Change([&] { TableWriter(table_).Erase(home_); });
}

}  // namespace jet
