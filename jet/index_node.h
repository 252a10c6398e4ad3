#pragma once

#include "jet/index_page.h"

namespace jet
{

/// An entry with all its bytes: key and row pointer; in a node also the child.
struct IndexEntry {
    KeyBytes bytes;
    std::uint32_t child = 0;
};

using IndexEntries = std::vector<IndexEntry>;

/// A page of an index tree, taken apart to be changed. A node always has a tail here, and no
/// entries when it has one child only.
struct IndexNode {
    std::uint32_t number = 0;
    bool leaf = true;
    std::uint8_t level = 0;
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
    std::uint32_t tail = 0;
    bool tail_listed = false;  ///< on its page the tail is the child of a last entry
    IndexEntries entries;

    /// First entry that is not before `wanted`, entries.size() when all are.
    std::size_t LowerBound(const KeyBytes& wanted) const;
    /// The child of an entry, or the tail behind the last one.
    std::uint32_t Child(std::size_t at) const
    {
        return at < entries.size() ? entries[at].child : tail;
    }
};

/// Errors: kDamagedFile, also when the entries are not in order; kDiskError.
IndexNode LoadIndexNode(PageFile& file, std::uint32_t number, std::uint32_t owner);

/// Whether the entries from `begin` up to `end` go on one page.
bool FitsIndexPage(const Format& format, const IndexNode& node, std::size_t begin, std::size_t end);

/// The page's bytes. REQUIRES: the entries fit.
PageImage IndexPageImage(const Format& format, const IndexNode& node, std::uint32_t owner);

/// Bytes of a page for entries. A key may be as long as a quarter of it, so that every page can be
/// split.
inline std::size_t IndexPageRoom(const Format& format)
{
    return format.page_bytes - format.index_page.entries;
}

}  // namespace jet
