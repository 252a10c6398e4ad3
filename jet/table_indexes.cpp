#include "jet/table_indexes.h"

#include "jet/failure.h"
#include "jet/index_order.h"
#include "jet/index_tree.h"

#include <algorithm>

namespace jet
{

namespace
{

std::string_view WhyNotBuilt(KeyResult result)
{
    switch (result) {
        case KeyResult::UnknownOrder:
            return "il suo ordinamento del testo è sconosciuto";
        case KeyResult::NoCode:
            return "il testo contiene un carattere che l'indice non sa ordinare";
        default:
            return "è su un campo di tipo sconosciuto";
    }
}

}  // namespace

std::u16string_view TableIndexes::NameOf(const RealIndex& index) const
{
    const auto number = static_cast<std::size_t>(&index - table_.real_indexes.data());
    const auto logical = std::ranges::find(table_.logical_indexes, number, &LogicalIndex::real);
    return logical == table_.logical_indexes.end() ? std::u16string_view{} : logical->name;
}

RowKey TableIndexes::CheckedKey(const RealIndex& index, const Row& row)
{
    RowKey key = KeyOfRow(file_, table_, index, row);
    if (index.required && key.any_null) {
        FailNullInKey(NameOf(index));
    }
    if (!IsListed(index, key)) {
        return key;
    }
    if (key.result != KeyResult::Built) {
        FailIndexUnknown(NameOf(index), WhyNotBuilt(key.result));
    }
    if (key.bytes.size() > IndexPageRoom(file_.Format()) / 4) {
        FailIndexUnknown(NameOf(index), "i valori sono troppo lunghi");
    }
    return key;
}

// Keys with a Null may occur more than once in a unique index.
int TableIndexes::InsertKey(const RealIndex& index, const RowKey& key, RowPointer home)
{
    if (!IsListed(index, key)) {
        return 0;
    }
    const bool known = IndexOrder(file_, table_.page, index.root).Seek(key.bytes).has_value();
    if (known && index.unique && !key.any_null) {
        FailDuplicateKey(NameOf(index));
    }
    IndexTree(file_, table_.page, index).Insert(LeafEntry(key.bytes, home));
    return known ? 0 : 1;
}

// A key that the engine cannot build was made by another; its entry is known by the row.
void TableIndexes::EraseKey(const RealIndex& index, const RowKey& key, RowPointer home)
{
    if (!IsListed(index, key)) {
        return;
    }
    IndexTree tree(file_, table_.page, index);
    tree.Erase(key.result == KeyResult::Built ? LeafEntry(key.bytes, home) : tree.EntryOf(home));
}

std::vector<int> TableIndexes::Insert(const Row& row, RowPointer home)
{
    std::vector<int> new_keys;
    for (const RealIndex& index : table_.real_indexes) {
        new_keys.push_back(InsertKey(index, CheckedKey(index, row), home));
    }
    return new_keys;
}

// An index whose columns keep their bytes is left alone, so that a row can be edited beside a text
// that has no key.
std::vector<int> TableIndexes::Update(const Row& before, const Row& after, RowPointer home)
{
    std::vector<int> new_keys;
    for (const RealIndex& index : table_.real_indexes) {
        new_keys.push_back(0);
        if (SameKeyColumns(table_, index, before, after)) {
            continue;
        }
        const RowKey key = CheckedKey(index, after);
        const RowKey old = KeyOfRow(file_, table_, index, before);
        if (old.result == KeyResult::Built && key.result == KeyResult::Built &&
            old.bytes == key.bytes && IsListed(index, old) == IsListed(index, key)) {
            continue;
        }
        EraseKey(index, old, home);
        new_keys.back() = InsertKey(index, key, home);
    }
    return new_keys;
}

void TableIndexes::Erase(const Row& row, RowPointer home)
{
    for (const RealIndex& index : table_.real_indexes) {
        EraseKey(index, KeyOfRow(file_, table_, index, row), home);
    }
}

}  // namespace jet
