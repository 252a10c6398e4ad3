#include "jet/map_bits.h"

#include "jet/data_page_writer.h"
#include "jet/failure.h"

namespace jet
{

MapBits::MapBits(PageFile& file, RowPointer map)
    : file_(file), map_(map), page_(file.Read(map.page))
{
    const Bytes row = DataPage(file.Format(), page_).Row(map.row).bytes;
    if (row.size() < kInlineMapHeader || row[0] > 1) {
        FailDamaged(map.page, "mappa delle pagine illeggibile");
    }
    inline_ = row[0] == 0;
    row_start_ = static_cast<std::size_t>(row.data() - page_.Content().data());
    row_bytes_ = row.size();
    first_ = inline_ ? U32(row, 1) : 0;
    span_ = inline_ ? 8 * (row.size() - kInlineMapHeader) : 0;
}

std::uint64_t MapBits::PagesPerBitmap() const
{
    return 8 * (file_.Format().page_bytes - kBitmapPageHeader);
}

std::optional<MapBit> MapBits::Find(std::uint32_t page) const
{
    if (inline_) {
        if (page < first_ || page - first_ >= span_) {
            return std::nullopt;
        }
        const std::uint32_t bit = page - first_;
        return MapBit{map_.page, row_start_ + kInlineMapHeader + bit / 8,
                      static_cast<std::uint8_t>(1u << bit % 8)};
    }
    const std::size_t reference = 1 + 4 * static_cast<std::size_t>(page / PagesPerBitmap());
    if (reference + 4 > row_bytes_) {
        return std::nullopt;
    }
    const std::uint32_t bitmap = U32(page_.Content(), row_start_ + reference);
    if (bitmap == 0) {
        return std::nullopt;
    }
    if (file_.Read(bitmap).Content()[0] != kBitmapPage) {
        FailDamaged(bitmap, "non è una pagina di mappa");
    }
    const std::uint64_t bit = page % PagesPerBitmap();
    return MapBit{bitmap, kBitmapPageHeader + static_cast<std::size_t>(bit / 8),
                  static_cast<std::uint8_t>(1u << bit % 8)};
}

std::vector<std::uint32_t> BitmapPagesOf(PageFile& file, RowPointer map)
{
    std::vector<std::uint32_t> pages;
    const StoredRow row = DataPage(file.Format(), file.Read(map.page)).Row(map.row);
    if (row.bytes.size() >= kInlineMapHeader && row.bytes[0] == 1) {
        for (std::size_t at = 1; at + 4 <= row.bytes.size(); at += 4) {
            if (const std::uint32_t page = U32(row.bytes, at); page != 0) {
                pages.push_back(page);
            }
        }
    }
    return pages;
}

PageImage BitmapPage(const Format& format, std::uint8_t fill)
{
    PageImage page(format.page_bytes, fill);
    PutU32(page, 0, 0x0100u | kBitmapPage);
    return page;
}

bool TestBit(PageFile& file, const MapBit& bit)
{
    return (file.Read(bit.page).Content()[bit.byte] & bit.mask) != 0;
}

void PutBit(PageFile& file, const MapBit& bit, bool set)
{
    if (TestBit(file, bit) == set) {
        return;
    }
    const Page page = file.Read(bit.page);
    PageImage content(page.Content().begin(), page.Content().end());
    content[bit.byte] ^= bit.mask;
    file.Write(bit.page, std::move(content));
}

bool LengthenInlineMap(PageFile& file, RowPointer map, std::size_t bytes, std::uint8_t fill)
{
    DataPageWriter page(file.Format(), file.Read(map.page));
    if (page.FreeSpace() < bytes) {
        return false;
    }
    const Bytes old = page.Row(map.row);
    PageImage row(old.begin(), old.end());
    row.resize(row.size() + bytes, fill);
    page.Replace(map.row, row, page.State(map.row));
    file.Write(map.page, page.Take());
    return true;
}

void ClearToReferences(PageFile& file, RowPointer map)
{
    DataPageWriter page(file.Format(), file.Read(map.page));
    PageImage row(page.Row(map.row).size(), 0);
    row[0] = 1;
    page.Replace(map.row, row, page.State(map.row));
    file.Write(map.page, page.Take());
}

void SetReference(PageFile& file, RowPointer map, std::uint32_t page_number, std::uint32_t bitmap)
{
    DataPageWriter page(file.Format(), file.Read(map.page));
    const Bytes old = page.Row(map.row);
    PageImage row(old.begin(), old.end());
    const std::size_t reference =
        1 + 4 * (page_number / (8 * (file.Format().page_bytes - kBitmapPageHeader)));
    if (reference + 4 > row.size()) {
        FailFileFull();
    }
    PutU32(row, reference, bitmap);
    page.Replace(map.row, row, page.State(map.row));
    file.Write(map.page, page.Take());
}

}  // namespace jet
