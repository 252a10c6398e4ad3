#include "jet/row_store.h"

#include "jet/failure.h"
#include "jet/map_bits.h"
#include "jet/page_allocator.h"
#include "jet/usage_map.h"
#include "jet/usage_map_writer.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr std::size_t kPointerBytes = 4;

}  // namespace

DataPageWriter RowStore::Load(std::uint32_t number) const
{
    const Page page = file_.Read(number);
    if (DataPage(file_.Format(), page).Owner() != table_.page) {
        FailDamaged(number, "pagina di un'altra tabella");
    }
    return {file_.Format(), page};
}

void RowStore::Store(std::uint32_t page, DataPageWriter& content)
{
    file_.Write(page, content.Take());
}

// A page of the free-space map that has no room for the row is no longer worth trying. Without such
// a map, which only some system tables lack, the last page is tried.
RowPointer RowStore::Place(Bytes row, RowState state)
{
    const bool has_map = table_.free_map.page != 0;
    std::vector<std::uint32_t> candidates =
        ReadUsageMap(file_, has_map ? table_.free_map : table_.data_map);
    if (!has_map && !candidates.empty()) {
        candidates = {candidates.back()};
    }
    std::ranges::reverse(candidates);
    for (const std::uint32_t number : candidates) {
        DataPageWriter page = Load(number);
        if (page.HasRoomFor(row.size())) {
            const RowPointer at{number, page.Add(row, state)};
            Store(number, page);
            return at;
        }
        if (has_map) {
            ClearInUsageMap(file_, table_.free_map, number);
        }
    }
    const std::uint32_t number =
        PageAllocator(file_).Allocate(DataPageWriter::Empty(file_.Format(), table_.page));
    SetInUsageMap(file_, table_.data_map, number);
    if (has_map) {
        SetInUsageMap(file_, table_.free_map, number);
    }
    DataPageWriter page = Load(number);
    const RowPointer at{number, page.Add(row, state)};
    Store(number, page);
    return at;
}

bool RowStore::ReplaceOnPage(RowPointer at, Bytes row)
{
    DataPageWriter page = Load(at.page);
    const std::size_t length = page.Row(at.row).size();
    if (row.size() > length + page.FreeSpace()) {
        return false;
    }
    page.Replace(at.row, row, page.State(at.row));
    Store(at.page, page);
    return true;
}

// Jet 3 cuts the home entry to the pointer, Jet 4 leaves it its length.
void RowStore::PointTo(RowPointer home, RowPointer target)
{
    DataPageWriter page = Load(home.page);
    const Bytes old = page.Row(home.row);
    std::vector<std::uint8_t> bytes(old.begin(), old.end());
    if (!file_.Format().unicode || bytes.size() < kPointerBytes) {
        bytes.resize(kPointerBytes);
    }
    if (bytes.size() > old.size() + page.FreeSpace()) {
        FailRecordTooLong();
    }
    PutRowPointer(bytes, 0, target);
    page.Replace(home.row, bytes, RowState::Moved);
    Store(home.page, page);
}

RowPointer RowStore::Target(RowPointer home) const
{
    const DataPageWriter page = Load(home.page);
    const Bytes bytes = page.Row(home.row);
    if (bytes.size() < kPointerBytes) {
        FailDamaged(home.page, "riga spostata senza rinvio");
    }
    const RowPointer target = RowPointerAt(bytes, 0);
    const DataPageWriter target_page = Load(target.page);
    if (target.row >= target_page.RowCount() ||
        target_page.State(target.row) != RowState::MovedData) {
        FailDamaged(target.page, "riga spostata che non c'è");
    }
    return target;
}

void RowStore::Replace(RowPointer home, Bytes row)
{
    const bool moved = Load(home.page).State(home.row) == RowState::Moved;
    const RowPointer at = moved ? Target(home) : home;
    if (ReplaceOnPage(at, row)) {
        return;
    }
    PointTo(home, Place(row, RowState::MovedData));
    if (moved) {
        EraseEntry(at);
    }
}

void RowStore::Erase(RowPointer home)
{
    if (Load(home.page).State(home.row) == RowState::Moved) {
        EraseEntry(Target(home));
    }
    EraseEntry(home);
}

void RowStore::EraseEntry(RowPointer at)
{
    DataPageWriter page = Load(at.page);
    page.Erase(at.row);
    Store(at.page, page);
    if (table_.free_map.page != 0) {
        SetInUsageMap(file_, table_.free_map, at.page);
    }
}

}  // namespace jet
