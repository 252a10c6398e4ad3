#include "jet/usage_map.h"

#include "jet/data_page.h"
#include "jet/failure.h"

#include <bit>

// A usage map is a row:
//
//  offset  size  inline                  by reference
//  0       1     0                       1
//  1       4     first page              page of bitmap 0, 0 = none
//  5       ...   bitmap                  page of bitmap 1, ...
//
// Bit k of byte j stands for page first + 8j + k. A bitmap page has type 5 and the bits from offset
// 4 on; bitmap i begins with the page i times the bits of one.

namespace jet
{

namespace
{

constexpr std::size_t kBitmapPageHeader = 4;

void AppendBits(const PageFile& file, Bytes bitmap, std::uint64_t first,
                std::vector<std::uint32_t>& pages)
{
    for (std::size_t j = 0; j < bitmap.size(); ++j) {
        for (unsigned bits = bitmap[j]; bits != 0; bits &= bits - 1) {
            const std::uint64_t page =
                first + 8 * j + static_cast<std::uint64_t>(std::countr_zero(bits));
            if (page == 0 || page >= file.PageCount()) {
                FailDamaged("mappa delle pagine oltre la fine del file");
            }
            pages.push_back(static_cast<std::uint32_t>(page));
        }
    }
}

}  // namespace

std::vector<std::uint32_t> ReadUsageMap(PageFile& file, RowPointer map)
{
    std::vector<std::uint32_t> pages;
    if (map.page == 0) {
        return pages;
    }
    const StoredRow row = DataPage(file.Format(), file.Read(map.page)).Row(map.row);
    constexpr std::size_t kInlineHeader = 5;
    if (row.bytes.size() >= kInlineHeader && row.bytes[0] == 0) {
        AppendBits(file, row.bytes.subspan(kInlineHeader), U32(row.bytes, 1), pages);
        return pages;
    }
    if (row.bytes.size() < kInlineHeader || row.bytes[0] != 1) {
        FailDamaged(map.page, "mappa delle pagine illeggibile");
    }
    const std::size_t bitmap_bytes = file.Format().page_bytes - kBitmapPageHeader;
    for (std::size_t i = 0; 1 + 4 * (i + 1) <= row.bytes.size(); ++i) {
        const std::uint32_t number = U32(row.bytes, 1 + 4 * i);
        if (number == 0) {
            continue;
        }
        const Page page = file.Read(number);
        if (page.Content()[0] != kBitmapPage) {
            FailDamaged(number, "non è una pagina di mappa");
        }
        AppendBits(file, page.Content().subspan(kBitmapPageHeader), 8 * bitmap_bytes * i, pages);
    }
    return pages;
}

}  // namespace jet
