#include "jet/definition_stream.h"

#include "jet/failure.h"
#include "jet/page_allocator.h"

#include <algorithm>

//  offset  size  table definition page
//  0       2     type 2, 1
//  2       2     Jet 3: "VC"; Jet 4: free bytes of the page less 8, never below 0
//  4       4     next page of this definition, 0 = last
//  8       4     first page only: length of the definition, the headers of further pages not
//  counted

namespace jet
{

namespace
{

constexpr std::size_t kFreeBytes = 2;
constexpr std::size_t kNext = 4;
constexpr std::size_t kPageHeader = 8;
constexpr std::size_t kLength = 8;

// 255 columns and 32 indexes with the longest names take some 20 pages. The limit ends a chain
// that runs in a circle.
constexpr std::size_t kMostPages = 64;

}  // namespace

std::vector<std::uint32_t> DefinitionPages(PageFile& file, std::uint32_t first_page)
{
    const std::size_t most_pages = std::min<std::size_t>(kMostPages, file.PageCount());
    std::vector<std::uint32_t> pages;
    for (std::uint32_t number = first_page; number != 0;) {
        const Page page = file.Read(number);
        if (page.Content()[0] != kDefinitionPage || pages.size() == most_pages) {
            FailDamaged(number, "definizione di tabella interrotta");
        }
        pages.push_back(number);
        number = U32(page.Content(), kNext);
    }
    return pages;
}

std::vector<std::uint8_t> ReadDefinitionStream(PageFile& file, std::uint32_t first_page)
{
    std::vector<std::uint8_t> stream;
    for (const std::uint32_t number : DefinitionPages(file, first_page)) {
        const Page page = file.Read(number);
        const Bytes part = page.Content().subspan(stream.empty() ? 0 : kPageHeader);
        stream.insert(stream.end(), part.begin(), part.end());
    }
    const std::uint32_t length = stream.empty() ? 0 : U32(stream, kLength);
    if (length < file.Format().definition.counters || length > stream.size()) {
        FailDamaged(first_page, "lunghezza della definizione di tabella impossibile");
    }
    stream.resize(length);
    return stream;
}

PageImage EmptyDefinitionPage(const Format& format)
{
    PageImage page(format.page_bytes, 0);
    page[0] = kDefinitionPage;
    page[1] = 1;
    if (!format.unicode) {
        page[kFreeBytes] = 'V';
        page[kFreeBytes + 1] = 'C';
    }
    return page;
}

void WriteDefinitionStream(PageFile& file, std::uint32_t first_page,
                           std::vector<std::uint8_t> stream)
{
    const Format& format = file.Format();
    PutU32(stream, kLength, stream.size());
    const std::size_t room = format.page_bytes - kPageHeader;
    Bytes rest = Bytes(stream).subspan(kPageHeader);
    std::uint32_t number = first_page;
    while (true) {
        std::uint32_t next = U32(file.Read(number).Content(), kNext);
        const Bytes part = rest.first(std::min(room, rest.size()));
        rest = rest.subspan(part.size());
        if (next == 0 && !rest.empty()) {
            next = PageAllocator(file).Allocate(EmptyDefinitionPage(format));
        }
        PageImage page = EmptyDefinitionPage(format);
        std::ranges::copy(part, page.begin() + kPageHeader);
        if (format.unicode) {
            PutU16(page, kFreeBytes,
                   room - part.size() - std::min(room - part.size(), kPageHeader));
        }
        PutU32(page, kNext, next);
        file.Write(number, std::move(page));
        if (rest.empty()) {
            return;
        }
        number = next;
    }
}

}  // namespace jet
