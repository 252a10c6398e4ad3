#include "jet/index_node.h"

#include "jet/failure.h"

#include <algorithm>

// The layout is that of index_page.cpp.

namespace jet
{

namespace
{

constexpr std::size_t kFreeSpace = 2;
constexpr std::size_t kOwner = 4;
constexpr std::size_t kChildBytes = 4;

std::size_t StoredBytes(const IndexNode& node, const IndexEntry& entry)
{
    return entry.bytes.size() + (node.leaf ? 0 : kChildBytes);
}

std::size_t BytesWithoutPrefix(const IndexNode& node, std::size_t begin, std::size_t end)
{
    std::size_t bytes = 0;
    for (std::size_t i = begin; i < end; ++i) {
        bytes += StoredBytes(node, node.entries[i]);
    }
    return bytes;
}

/// Bytes that all the entries have in common. They are in order, so the first and the last tell.
std::size_t CommonPrefix(const IndexNode& node, std::size_t begin, std::size_t end)
{
    constexpr std::size_t kLongestPrefix = 255;  // one byte in Jet 3
    if (end - begin < 2) {
        return 0;
    }
    const KeyBytes& first = node.entries[begin].bytes;
    const KeyBytes& last = node.entries[end - 1].bytes;
    const auto differ = std::ranges::mismatch(first, last);
    return std::min(static_cast<std::size_t>(differ.in1 - first.begin()), kLongestPrefix);
}

/// A page is written without a prefix if that is possible.
std::size_t Prefix(const Format& format, const IndexNode& node, std::size_t begin, std::size_t end)
{
    return BytesWithoutPrefix(node, begin, end) <= IndexPageRoom(format)
               ? 0
               : CommonPrefix(node, begin, end);
}

std::size_t UsedBytes(const IndexNode& node, std::size_t prefix, std::size_t begin, std::size_t end)
{
    const std::size_t left_out = begin == end ? 0 : prefix * (end - begin - 1);
    return BytesWithoutPrefix(node, begin, end) - left_out;
}

}  // namespace

std::size_t IndexNode::LowerBound(const KeyBytes& wanted) const
{
    return static_cast<std::size_t>(
        std::ranges::lower_bound(entries, wanted, {}, &IndexEntry::bytes) - entries.begin());
}

IndexNode LoadIndexNode(PageFile& file, std::uint32_t number, std::uint32_t owner)
{
    const Page source = file.Read(number);
    const IndexPage page(file.Format(), source, owner);
    IndexNode node;
    node.number = number;
    node.leaf = page.IsLeaf();
    node.level = source.Content()[file.Format().index_page.level];
    node.previous = page.Previous();
    node.next = page.Next();
    node.tail = page.Tail();
    node.entries.resize(page.EntryCount());
    for (std::size_t i = 0; i < node.entries.size(); ++i) {
        page.CopyEntry(i, node.entries[i].bytes);
        node.entries[i].child = node.leaf ? 0 : page.Child(i);
        if (i > 0 && !(node.entries[i - 1].bytes < node.entries[i].bytes)) {
            FailDamaged(number, "indice non ordinato");
        }
    }
    // Other writers may list the rightmost child like the rest.
    if (!node.leaf && node.tail == 0 && !node.entries.empty()) {
        node.tail = node.entries.back().child;
        node.tail_listed = true;
        node.entries.pop_back();
    }
    return node;
}

bool FitsIndexPage(const Format& format, const IndexNode& node, std::size_t begin, std::size_t end)
{
    return UsedBytes(node, Prefix(format, node, begin, end), begin, end) <= IndexPageRoom(format);
}

PageImage IndexPageImage(const Format& format, const IndexNode& node, std::uint32_t owner)
{
    assert(FitsIndexPage(format, node, 0, node.entries.size()));
    const auto& layout = format.index_page;
    const std::size_t prefix = Prefix(format, node, 0, node.entries.size());
    PageImage page(format.page_bytes, 0);
    page[0] = node.leaf ? kIndexLeaf : kIndexNode;
    page[1] = 1;
    PutU16(page, kFreeSpace,
           IndexPageRoom(format) - UsedBytes(node, prefix, 0, node.entries.size()));
    PutU32(page, kOwner, owner);
    PutU32(page, layout.previous, node.previous);
    PutU32(page, layout.next, node.next);
    PutU32(page, layout.tail, node.tail);
    page[layout.prefix] = static_cast<std::uint8_t>(prefix);  // never above 255
    page[layout.level] = node.level;
    std::size_t end = 0;
    for (const IndexEntry& entry : node.entries) {
        const Bytes stored = Bytes(entry.bytes).subspan(end == 0 ? 0 : prefix);
        std::ranges::copy(stored, page.begin() + static_cast<std::ptrdiff_t>(layout.entries + end));
        end += stored.size();
        if (!node.leaf) {
            for (int shift = 24; shift >= 0; shift -= 8) {
                page[layout.entries + end++] = static_cast<std::uint8_t>(entry.child >> shift);
            }
        }
        std::uint8_t& bits = page[layout.bitmap + end / 8];
        bits = static_cast<std::uint8_t>(bits | 1u << end % 8);
    }
    return page;
}

}  // namespace jet
