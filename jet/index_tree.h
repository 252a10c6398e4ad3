#pragma once

#include "jet/index_node.h"
#include "jet/table_definition.h"

namespace jet
{

/// Changes the tree of an index. What holds before and after every call:
///
///  1. The entries of a page are in order, and so are the leaves along their links.
///  2. A node's entry is the last entry below its child, or an erased one between it and the next.
///     The rightmost child is the tail; an only child is listed.
///  3. The root stays on its page; all leaves have the same depth; the pages of a level are linked.
///  4. The map of the index lists exactly the pages of the tree.
///
/// Inside PageFile::Change only. Errors: kDamagedFile, kDiskFull, kDiskError.
class IndexTree
{
public:
    /// The index must outlive the tree.
    IndexTree(PageFile& file, std::uint32_t owner, const RealIndex& index)
        : file_(file), owner_(owner), index_(index)
    {
    }

    /// An entry is a key with the pointer of its row behind it.
    void Insert(const KeyBytes& entry);
    /// kDamagedFile when it is not there.
    void Erase(const KeyBytes& entry);

    /// The entry of a row whose key is not known; looks at all of them. kDamagedFile without one.
    KeyBytes EntryOf(RowPointer row);

private:
    struct Step {
        IndexNode node;
        std::size_t at = 0;  // place in the node: of the child taken, of the entry on a leaf
        bool changed = false;
    };
    using Path = std::vector<Step>;  // from the root to a leaf

    // A page number has 24 bits, so a tree whose nodes have two children is no deeper. This ends
    // ways that lead in a circle.
    static constexpr std::size_t kMostLevels = 24;

    IndexNode Load(std::uint32_t page) { return LoadIndexNode(file_, page, owner_); }
    Path Descend(const KeyBytes& entry);
    void Write(IndexNode node);
    KeyBytes LastBelow(std::uint32_t page);
    std::uint32_t Allocate();
    void Release(std::uint32_t page);
    void Relink(std::uint32_t page, std::uint32_t IndexNode::*link, std::uint32_t to);

    void Store(Path& path);
    void SplitRoot(Path& path, std::size_t cut);
    void Split(Path& path, std::size_t level, std::size_t cut);
    void NoteLastEntry(Path& path, std::size_t level, const KeyBytes& last);
    void RemovePage(Path& path, std::size_t level);
    void RemoveChild(Path& path, std::size_t level);
    void CollapseRoot(IndexNode root);
    void JoinNeighbour(Path& path, std::size_t level);

    PageFile& file_;
    std::uint32_t owner_;
    const RealIndex& index_;
};

/// Key and row pointer, big-endian.
KeyBytes LeafEntry(const KeyBytes& key, RowPointer row);

}  // namespace jet
