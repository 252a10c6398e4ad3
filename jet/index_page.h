#pragma once

#include "jet/page_file.h"
#include "jet/text_key.h"

#include <vector>

namespace jet
{

/// A node or leaf of an index tree. An entry is a key with the pointer of its row; in a node it is
/// the last leaf entry below one child, followed by the child's page.
class IndexPage
{
public:
    /// Errors: kDamagedFile when it is no index page of that table or its entries do not fit.
    IndexPage(const Format& format, Page page, std::uint32_t owner);

    bool IsLeaf() const { return page_.Content()[0] == kIndexLeaf; }
    std::size_t EntryCount() const { return ends_.size(); }
    std::uint32_t Previous() const { return U32(page_.Content(), format_->index_page.previous); }
    std::uint32_t Next() const { return U32(page_.Content(), format_->index_page.next); }

    /// The rightmost child of a node, which has no entry; 0 = every child has one.
    std::uint32_t Tail() const { return U32(page_.Content(), format_->index_page.tail); }

    /// Key and row pointer of an entry.
    void CopyEntry(std::size_t entry, KeyBytes& to) const;

    /// Child page of a node's entry.
    std::uint32_t Child(std::size_t entry) const;

    /// First entry that is not before `wanted`, EntryCount() when all are.
    std::size_t LowerBound(const KeyBytes& wanted) const;

    /// Bytes of the entry area that entries take.
    std::size_t UsedBytes() const { return ends_.empty() ? 0 : ends_.back(); }

    std::uint32_t Number() const { return page_.Number(); }

private:
    Bytes StoredEntry(std::size_t entry) const;
    void ReadBitmap();
    void CheckEntries() const;

    const Format* format_;
    Page page_;
    std::size_t prefix_ = 0;
    std::vector<std::uint16_t> ends_;
};

/// The row pointer at the end of a leaf entry: u24 page, u8 row, big-endian.
RowPointer RowOfEntry(Bytes entry);

/// The key of a leaf entry, without the row pointer.
Bytes KeyOfEntry(Bytes entry);

}  // namespace jet
