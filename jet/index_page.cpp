#include "jet/index_page.h"

#include "jet/failure.h"

#include <algorithm>
#include <bit>
#include <utility>

//  Jet 3  Jet 4  size  index page
//  0      0      2     type 3 (node) or 4 (leaf), 1
//  4      4      4     owner: definition page of the table
//  8      12     4     previous page of the same level, 0 = none
//  12     16     4     next page of the same level, 0 = none
//  16     20     4     tail child of a node
//  20     24     1, 2  prefix length: bytes of the first entry that all the others leave out
//  22     27           bitmap: bit b set = an entry ends at byte b of the entry area
//  248    480          entry area: the entries end to end, ascending as bytes

namespace jet
{

namespace
{

constexpr std::size_t kOwner = 4;
constexpr std::size_t kRowPointerBytes = 4;
constexpr std::size_t kChildBytes = 4;

std::uint32_t BigEndian32(Bytes bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | bytes[3];
}

}  // namespace

IndexPage::IndexPage(const Format& format, Page page, std::uint32_t owner)
    : format_(&format), page_(std::move(page))
{
    const Bytes content = page_.Content();
    if ((content[0] != kIndexNode && content[0] != kIndexLeaf) || U32(content, kOwner) != owner) {
        FailDamaged(page_.Number(), "non è una pagina di questo indice");
    }
    prefix_ = format.index_page.prefix_bytes == 1 ? content[format.index_page.prefix]
                                                  : U16(content, format.index_page.prefix);
    ReadBitmap();
    CheckEntries();
}

void IndexPage::ReadBitmap()
{
    const Bytes content = page_.Content();
    for (std::size_t at = format_->index_page.bitmap; at < format_->index_page.entries; ++at) {
        for (unsigned bits = content[at]; bits != 0; bits &= bits - 1) {
            const std::size_t end = 8 * (at - format_->index_page.bitmap) +
                                    static_cast<std::size_t>(std::countr_zero(bits));
            ends_.push_back(static_cast<std::uint16_t>(end));
        }
    }
}

void IndexPage::CheckEntries() const
{
    if (ends_.empty()) {
        return;
    }
    const std::size_t least = 1 + kRowPointerBytes + (IsLeaf() ? 0 : kChildBytes);
    bool good = format_->index_page.entries + ends_.back() <= format_->page_bytes &&
                ends_[0] >= std::max(least, prefix_);
    for (std::size_t i = 1; i < ends_.size(); ++i) {
        good = good && prefix_ + (ends_[i] - ends_[i - 1]) >= least;
    }
    if (!good) {
        FailDamaged(page_.Number(), "voci dell'indice illeggibili");
    }
}

Bytes IndexPage::StoredEntry(std::size_t entry) const
{
    const std::size_t start = entry == 0 ? 0 : ends_[entry - 1];
    return page_.Content().subspan(format_->index_page.entries + start, ends_[entry] - start);
}

void IndexPage::CopyEntry(std::size_t entry, KeyBytes& to) const
{
    const Bytes prefix = StoredEntry(0).first(entry == 0 ? 0 : prefix_);
    const Bytes rest = StoredEntry(entry);
    to.assign(prefix.begin(), prefix.end());
    to.insert(to.end(), rest.begin(), rest.end());
    if (!IsLeaf()) {
        to.erase(to.end() - kChildBytes, to.end());
    }
}

std::uint32_t IndexPage::Child(std::size_t entry) const
{
    const Bytes stored = StoredEntry(entry);
    if (stored.size() < kChildBytes) {
        FailDamaged(page_.Number(), "voci dell'indice illeggibili");
    }
    return BigEndian32(stored.last(kChildBytes));
}

std::size_t IndexPage::LowerBound(const KeyBytes& wanted) const
{
    KeyBytes candidate;
    std::size_t low = 0;
    std::size_t high = ends_.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        CopyEntry(middle, candidate);
        if (candidate < wanted) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

RowPointer RowOfEntry(Bytes entry)
{
    const std::uint32_t pointer = BigEndian32(entry.last(kRowPointerBytes));
    return {pointer >> 8, static_cast<std::uint16_t>(pointer & 0xFF)};
}

Bytes KeyOfEntry(Bytes entry)
{
    return entry.first(entry.size() - kRowPointerBytes);
}

}  // namespace jet
