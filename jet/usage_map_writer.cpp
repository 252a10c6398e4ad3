#include "jet/usage_map_writer.h"

#include "jet/map_bits.h"
#include "jet/page_allocator.h"
#include "jet/usage_map.h"

namespace jet
{

namespace
{

// Other writers lengthen a map by this many bytes at a time.
constexpr std::size_t kStep = 4;

/// Bytes to add to an inline map so that it reaches the page.
std::size_t Missing(const MapBits& bits, std::uint32_t page)
{
    const std::size_t wanted = (page - bits.First()) / 8 + 1;
    const std::size_t missing = wanted - static_cast<std::size_t>(bits.Span() / 8);
    return (missing + kStep - 1) / kStep * kStep;
}

void TurnIntoReferences(PageFile& file, RowPointer map)
{
    const std::vector<std::uint32_t> pages = ReadUsageMap(file, map);
    ClearToReferences(file, map);
    for (const std::uint32_t page : pages) {
        SetInUsageMap(file, map, page);
    }
}

}  // namespace

void SetInUsageMap(PageFile& file, RowPointer map, std::uint32_t page)
{
    assert(map.page != 0);
    const MapBits bits(file, map);
    if (const auto bit = bits.Find(page)) {
        PutBit(file, *bit, true);
        return;
    }
    if (!bits.Inline()) {
        SetReference(file, map, page, PageAllocator(file).Allocate(BitmapPage(file.Format(), 0)));
    } else if (page < bits.First() || !LengthenInlineMap(file, map, Missing(bits, page), 0)) {
        TurnIntoReferences(file, map);
    }
    SetInUsageMap(file, map, page);
}

void ClearInUsageMap(PageFile& file, RowPointer map, std::uint32_t page)
{
    assert(map.page != 0);
    if (const auto bit = MapBits(file, map).Find(page)) {
        PutBit(file, *bit, false);
    }
}

}  // namespace jet
