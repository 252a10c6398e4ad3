#pragma once

#include "jet/page_file.h"

#include <optional>

namespace jet
{

/// Where the bit for a page is: a place in the map's own row, or on a bitmap page.
struct MapBit {
    std::uint32_t page = 0;  ///< page to write
    std::size_t byte = 0;    ///< offset on that page
    std::uint8_t mask = 0;
};

/// The layout of a map is that of usage_map.cpp.
class MapBits
{
public:
    /// Errors: kDamagedFile when there is no map.
    MapBits(PageFile& file, RowPointer map);

    bool Inline() const { return inline_; }
    std::uint32_t First() const { return first_; }
    /// Pages that an inline map speaks of, from First() on.
    std::uint64_t Span() const { return span_; }
    /// Pages that one bitmap page speaks of.
    std::uint64_t PagesPerBitmap() const;

    /// Nothing when the map does not reach that page.
    std::optional<MapBit> Find(std::uint32_t page) const;

private:
    PageFile& file_;
    RowPointer map_;
    bool inline_ = true;
    std::uint32_t first_ = 0;
    std::uint64_t span_ = 0;
    Page page_;
    std::size_t row_start_ = 0;
    std::size_t row_bytes_ = 0;
};

/// The bits of a bitmap page begin here.
inline constexpr std::size_t kBitmapPageHeader = 4;
/// The bits of an inline map begin here in its row.
inline constexpr std::size_t kInlineMapHeader = 5;

/// The bitmap pages of a map by reference.
std::vector<std::uint32_t> BitmapPagesOf(PageFile& file, RowPointer map);

PageImage BitmapPage(const Format& format, std::uint8_t fill);

bool TestBit(PageFile& file, const MapBit& bit);
void PutBit(PageFile& file, const MapBit& bit, bool set);

/// Makes an inline map `bytes` longer, filled with `fill`. False when its page has no room for it.
bool LengthenInlineMap(PageFile& file, RowPointer map, std::size_t bytes, std::uint8_t fill);

/// Turns an inline map into one by reference that lists no bitmap page yet.
void ClearToReferences(PageFile& file, RowPointer map);
/// Names the bitmap page of a map by reference that speaks of `page`.
void SetReference(PageFile& file, RowPointer map, std::uint32_t page, std::uint32_t bitmap);

}  // namespace jet
