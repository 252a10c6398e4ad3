#include "jet/table_cursor.h"

#include "jet/column_value.h"
#include "jet/failure.h"
#include "jet/file_order.h"
#include "jet/index_key.h"

#include <functional>
#include <utility>

namespace jet
{

TableCursor::TableCursor(PageFile& file, std::shared_ptr<const TableLayout> definition)
    : table_(file, std::move(definition)), order_(std::make_unique<FileOrder>(table_))
{
    const TableLayout& table = table_.Definition();
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        columns_.Add(table.columns[i].name, i);
    }
    for (std::size_t i = 0; i < table.logical_indexes.size(); ++i) {
        indexes_.Add(table.logical_indexes[i].name, i);
    }
    MoveFirst();
}

// A step that fails leaves no row current.
template <typename Step>
void TableCursor::GoTo(Step step, Place otherwise)
{
    row_.reset();
    place_ = Place::Nowhere;
    if (const std::optional<RowPointer> row = step(*order_)) {
        row_.emplace(table_.ReadRow(*row));
        place_ = Place::OnRow;
    } else {
        place_ = otherwise;
    }
}

void TableCursor::MoveFirst()
{
    GoTo(std::mem_fn(&RowOrder::First), Place::Empty);
}

void TableCursor::MoveLast()
{
    GoTo(std::mem_fn(&RowOrder::Last), Place::Empty);
}

void TableCursor::MoveNext()
{
    if (place_ == Place::BeforeFirst) {
        MoveFirst();
    } else if (place_ == Place::OnRow) {
        GoTo(std::mem_fn(&RowOrder::Next), Place::BehindLast);
    } else {
        FailNoCurrentRecord();
    }
}

void TableCursor::MovePrevious()
{
    if (place_ == Place::BehindLast) {
        MoveLast();
    } else if (place_ == Place::OnRow) {
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
    return table_.CountRows();
}

Value TableCursor::Field(std::u16string_view column)
{
    const auto found = columns_.Find(column);
    if (!found) {
        FailColumnNotFound(column);
    }
    if (!row_) {
        FailNoCurrentRecord();
    }
    return ReadColumn(table_.File(), *row_, table_.Definition().columns[*found]);
}

void TableCursor::SetIndex(std::u16string_view name)
{
    const TableLayout& table = table_.Definition();
    if (name.empty()) {
        index_ = nullptr;
        index_order_ = nullptr;
        order_ = std::make_unique<FileOrder>(table_);
    } else {
        const auto found = indexes_.Find(name);
        if (!found) {
            FailIndexNotFound(name);
        }
        index_ = &table.real_indexes[table.logical_indexes[*found].real];
        auto order = std::make_unique<IndexOrder>(table_.File(), table.page, index_->root);
        index_order_ = order.get();
        order_ = std::move(order);
    }
    no_match_ = false;
    MoveFirst();
}

void TableCursor::Seek(const std::vector<Value>& key)
{
    if (index_ == nullptr) {
        FailNoIndexSelected();
    }
    const KeyBytes wanted = SearchKey(key);
    GoTo([&](RowOrder&) { return index_order_->Seek(wanted); }, Place::Nowhere);
    no_match_ = place_ == Place::Nowhere;
}

KeyBytes TableCursor::SearchKey(const std::vector<Value>& values) const
{
    if (values.size() != index_->columns.size()) {
        FailKey("numero di valori diverso da quello dei campi dell'indice");
    }
    KeyBytes key;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto& [column, ascending] = index_->columns[i];
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
