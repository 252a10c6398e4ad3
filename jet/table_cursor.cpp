#include "jet/table_cursor.h"

#include "jet/column_value.h"
#include "jet/failure.h"
#include "jet/file_order.h"
#include "jet/filtered_order.h"
#include "jet/index_key.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace jet
{

TableCursor::TableCursor(PageFile& file, std::uint32_t definition_page, std::optional<Query> query)
    : table_(file, std::make_shared<TableLayout>(ReadTableDefinition(file, definition_page))),
      query_(std::move(query)),
      changes_seen_(file.Changes()),
      schema_changes_seen_(file.SchemaChanges())
{
    NameColumns();
    order_ = MakeFileOrder();
    MoveFirst();
}

void TableCursor::NameColumns()
{
    NameMap all;
    for (std::size_t i = 0; i < Layout().columns.size(); ++i) {
        all.Add(Layout().columns[i].name, i);
    }
    if (query_) {
        columns_ = {};
        for (const std::u16string& name : query_->columns) {
            const auto found = all.Find(name);
            if (!found) {
                FailColumnNotFound(name);
            }
            columns_.Add(name, *found);
        }
    } else {
        columns_ = std::move(all);
    }
    indexes_ = {};
    for (std::size_t i = 0; i < Layout().logical_indexes.size(); ++i) {
        indexes_.Add(Layout().logical_indexes[i].name, i);
    }
}

std::unique_ptr<RowOrder> TableCursor::MakeFileOrder()
{
    auto rows = std::make_unique<FileOrder>(table_);
    if (!query_ || !query_->condition) {
        return rows;
    }
    NameMap names;
    for (const ColumnLayout& column : Layout().columns) {
        names.Add(column.name, column.id);
    }
    const auto id = names.Find(query_->condition->column);
    if (!id) {
        FailColumnNotFound(query_->condition->column);
    }
    return std::make_unique<FilteredOrder>(std::move(rows), [this, id](RowPointer home) {
        const auto column = std::ranges::find(Layout().columns, *id, &ColumnLayout::id);
        return column != Layout().columns.end() &&
               Matches(ReadColumn(File(), table_.ReadRow(home), *column), query_->condition->value);
    });
}

// Takes in what other cursors, or a rollback, have done to the table.
void TableCursor::Synchronise()
{
    if (changes_seen_ == File().Changes()) {
        return;
    }
    if (schema_changes_seen_ != File().SchemaChanges()) {
        table_.Reload(std::make_shared<TableLayout>(ReadTableDefinition(File(), Layout().page)));
        NameColumns();
    } else {
        table_.Reload(table_.SharedDefinition());
    }
    changes_seen_ = File().Changes();
    schema_changes_seen_ = File().SchemaChanges();
    if (place_ != Place::OnRow && place_ != Place::Deleted) {
        return;
    }
    row_.reset();
    place_ = table_.HasRow(home_) ? Place::OnRow : Place::Deleted;
    if (place_ == Place::OnRow) {
        row_.emplace(table_.ReadRow(home_));
    }
    order_->Refresh();
}

// A step that fails leaves no row current.
template <typename Step>
void TableCursor::GoTo(Step step, Place otherwise)
{
    pending_.reset();
    row_.reset();
    place_ = Place::Nowhere;
    if (const std::optional<RowPointer> row = step(*order_)) {
        row_.emplace(table_.ReadRow(*row));
        home_ = *row;
        place_ = Place::OnRow;
    } else {
        place_ = otherwise;
    }
}

void TableCursor::MoveFirst()
{
    Synchronise();
    GoTo(std::mem_fn(&RowOrder::First), Place::Empty);
}

void TableCursor::MoveLast()
{
    Synchronise();
    GoTo(std::mem_fn(&RowOrder::Last), Place::Empty);
}

void TableCursor::MoveNext()
{
    Synchronise();
    if (place_ == Place::BeforeFirst) {
        MoveFirst();
    } else if (place_ == Place::OnRow || place_ == Place::Deleted) {
        GoTo(std::mem_fn(&RowOrder::Next), Place::BehindLast);
    } else {
        FailNoCurrentRecord();
    }
}

void TableCursor::MovePrevious()
{
    Synchronise();
    if (place_ == Place::BehindLast) {
        MoveLast();
    } else if (place_ == Place::OnRow || place_ == Place::Deleted) {
        GoTo(std::mem_fn(&RowOrder::Previous), Place::BeforeFirst);
    } else {
        FailNoCurrentRecord();
    }
}

bool TableCursor::AtBof() const
{
    return place_ == Place::BeforeFirst || place_ == Place::Empty;
}

bool TableCursor::AtEof() const
{
    return place_ == Place::BehindLast || place_ == Place::Empty;
}

std::size_t TableCursor::RecordCount()
{
    Synchronise();
    if (!query_) {
        return table_.CountRows();
    }
    std::size_t count = 0;
    const auto order = MakeFileOrder();
    for (auto row = order->First(); row; row = order->Next()) {
        ++count;
    }
    return count;
}

std::size_t TableCursor::ColumnPlace(std::u16string_view name)
{
    const auto found = columns_.Find(name);
    if (!found) {
        FailColumnNotFound(name);
    }
    return *found;
}

Value TableCursor::Field(std::u16string_view name)
{
    Synchronise();
    const ColumnLayout& column = Layout().columns[ColumnPlace(name)];
    if (pending_) {
        if (column.type == ColumnType::YesNo) {
            return pending_->image.Bit(column.id);
        }
        const auto bytes = pending_->image.Field(column);
        return bytes ? ReadField(File(), column, *bytes, home_.page) : Null{};
    }
    if (!row_) {
        FailNoCurrentRecord();
    }
    return ReadColumn(File(), *row_, column);
}

void TableCursor::SetIndex(std::u16string_view name)
{
    Synchronise();
    if (query_) {
        FailNotForQueries();
    }
    if (!name.empty() && !indexes_.Find(name)) {
        FailIndexNotFound(name);
    }
    if (name.empty()) {
        index_.reset();
        index_order_ = nullptr;
        order_ = MakeFileOrder();
    } else {
        index_ = Layout().logical_indexes[*indexes_.Find(name)].real;
        auto order = std::make_unique<IndexOrder>(File(), Layout().page,
                                                  Layout().real_indexes[*index_].root);
        index_order_ = order.get();
        order_ = std::move(order);
    }
    no_match_ = false;
    MoveFirst();
}

void TableCursor::Seek(const std::vector<Value>& key)
{
    Synchronise();
    if (!index_) {
        FailNoIndexSelected();
    }
    const KeyBytes wanted = SearchKey(key);
    GoTo([&](RowOrder&) { return index_order_->Seek(wanted); }, Place::Nowhere);
    no_match_ = place_ == Place::Nowhere;
}

KeyBytes TableCursor::SearchKey(const std::vector<Value>& values) const
{
    const std::vector<KeyColumn>& columns = Layout().real_indexes[*index_].columns;
    if (values.size() != columns.size()) {
        FailKey("numero di valori diverso da quello dei campi dell'indice");
    }
    KeyBytes key;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto& [column, ascending] = columns[i];
        switch (AppendKey(table_.File().Format(), table_.Definition().columns[column], ascending,
                          values[i], key)) {
            case KeyResult::Built:
                break;
            case KeyResult::WrongKind:
                FailKey("valore che il campo non può contenere");
            case KeyResult::UnknownOrder:
                FailKey("ordinamento del testo sconosciuto");
            case KeyResult::NoCode:
                FailKey("carattere che l'indice non sa ordinare");
            case KeyResult::NotIndexable:
                FailKey("campo di un tipo senza indice");
        }
    }
    return key;
}

}  // namespace jet
