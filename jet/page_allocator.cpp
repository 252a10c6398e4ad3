#include "jet/page_allocator.h"

#include "jet/failure.h"
#include "jet/map_bits.h"

#include <algorithm>
#include <bit>
#include <optional>

// The map of free pages is row 0 of page 1: a bit that is set stands for a page that is free or
// lies beyond the end of the file.

namespace jet
{

namespace
{

constexpr RowPointer kGlobalMap{1, 0};
constexpr std::size_t kStep = 4;
constexpr std::uint8_t kAllFree = 0xFF;

// Pages below it hold the header, this map and the first system tables. A map that says that they
// are free is wrong.
constexpr std::uint32_t kFirstOrdinaryPage = 6;

std::optional<std::uint32_t> FirstFree(PageFile& file)
{
    const MapBits bits(file, kGlobalMap);
    std::uint32_t page = kFirstOrdinaryPage;
    while (page < file.PageCount()) {
        const auto bit = bits.Find(page);
        const Page content = file.Read(bit ? bit->page : kGlobalMap.page);
        const unsigned byte = bit ? content.Content()[bit->byte] : 0u;
        const unsigned rest = bit ? byte & ~(bit->mask - 1u) : 0u;
        if (rest != 0) {
            page += static_cast<std::uint32_t>(std::countr_zero(rest) -
                                               std::countr_zero(unsigned{bit->mask}));
            return page < file.PageCount() ? std::optional(page) : std::nullopt;
        }
        page += bit ? 8 - static_cast<std::uint32_t>(std::countr_zero(unsigned{bit->mask})) : 8;
    }
    return std::nullopt;
}

// A bitmap page for a range whose pages all lie beyond the end is put on the first of them.
void AddBitmap(PageFile& file, std::uint32_t page)
{
    const std::uint32_t bitmap = file.Append(BitmapPage(file.Format(), kAllFree));
    SetReference(file, kGlobalMap, page, bitmap);
}

void TurnIntoReferences(PageFile& file)
{
    std::vector<std::uint32_t> used;
    const MapBits before(file, kGlobalMap);
    for (std::uint32_t page = 0; page < file.PageCount(); ++page) {
        const auto bit = before.Find(page);
        if (!bit || !TestBit(file, *bit)) {
            used.push_back(page);
        }
    }
    ClearToReferences(file, kGlobalMap);
    for (std::uint64_t first = 0; first <= file.PageCount(); first += before.PagesPerBitmap()) {
        used.push_back(file.PageCount());
        AddBitmap(file, static_cast<std::uint32_t>(first));
    }
    for (const std::uint32_t page : used) {
        PutBit(file, MapBits(file, kGlobalMap).Find(page).value(), false);
    }
}

void MarkUsed(PageFile& file, std::uint64_t begin, std::uint64_t end)
{
    for (std::uint64_t page = begin; page < end; ++page) {
        const auto number = static_cast<std::uint32_t>(page);
        PutBit(file, MapBits(file, kGlobalMap).Find(number).value(), false);
    }
}

/// Makes the map long enough for the page behind the end of the file. A map that did not even reach
/// that end has not said that the pages between are free, so they are not.
void CoverEnd(PageFile& file)
{
    while (true) {
        const MapBits bits(file, kGlobalMap);
        const std::uint32_t end = file.PageCount();
        if (bits.Find(end)) {
            return;
        }
        if (!bits.Inline()) {
            AddBitmap(file, end);
            MarkUsed(file, end - end % bits.PagesPerBitmap(), file.PageCount());
        } else if (end < bits.First() || !LengthenInlineMap(file, kGlobalMap, kStep, kAllFree)) {
            TurnIntoReferences(file);
        } else {
            const std::uint64_t added = bits.First() + bits.Span();
            MarkUsed(file, added, std::min<std::uint64_t>(end, added + 8 * kStep));
        }
    }
}

}  // namespace

std::uint32_t PageAllocator::Allocate(PageImage content)
{
    if (const auto free = FirstFree(file_)) {
        PutBit(file_, MapBits(file_, kGlobalMap).Find(*free).value(), false);
        file_.Write(*free, std::move(content));
        return *free;
    }
    CoverEnd(file_);
    const std::uint32_t page = file_.Append(std::move(content));
    PutBit(file_, MapBits(file_, kGlobalMap).Find(page).value(), false);
    return page;
}

void PageAllocator::Free(std::uint32_t page)
{
    const auto bit = MapBits(file_, kGlobalMap).Find(page);
    if (!bit) {
        FailDamaged(page, "pagina che la mappa delle pagine libere non conosce");
    }
    PutBit(file_, *bit, true);
}

}  // namespace jet
