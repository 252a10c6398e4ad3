#include "jet/index_tree.h"

#include "jet/failure.h"
#include "jet/page_allocator.h"
#include "jet/usage_map_writer.h"

#include <algorithm>
#include <utility>

// Going down, looking up and inserting. Erasing is in index_tree_erase.cpp.

namespace jet
{

namespace
{

/// Takes the entries from `cut` on out of a node. In a node the last of those that stay loses its
/// key to the level above: its child becomes the tail. Gives that key, on a leaf the last entry.
KeyBytes CutOff(IndexNode& left, std::size_t cut, IndexNode& right)
{
    right.leaf = left.leaf;
    right.level = left.level;
    right.tail = left.tail;
    const auto at = left.entries.begin() + static_cast<std::ptrdiff_t>(cut);
    right.entries.assign(std::make_move_iterator(at), std::make_move_iterator(left.entries.end()));
    left.entries.erase(at, left.entries.end());
    if (left.leaf) {
        return left.entries.back().bytes;
    }
    IndexEntry last = std::move(left.entries.back());
    left.entries.pop_back();
    left.tail = last.child;
    return std::move(last.bytes);
}

/// Number of entries that stay when a page that overflows is split: half of them, or as near to
/// that as both parts fit; all but the new one when it came to the very end, so that growing
/// keys leave full pages behind.
std::size_t ChooseCut(const Format& format, const IndexNode& node, bool at_end)
{
    const std::size_t count = node.entries.size();
    const std::size_t least = node.leaf ? 1 : 2;
    const auto fits = [&](std::size_t cut) {
        return cut >= least && cut < count && FitsIndexPage(format, node, 0, cut) &&
               FitsIndexPage(format, node, cut, count);
    };
    if (at_end && fits(count - 1)) {
        return count - 1;
    }
    for (std::size_t away = 0; away <= count; ++away) {
        if (fits(count / 2 + away)) {
            return count / 2 + away;
        }
        if (away <= count / 2 && fits(count / 2 - away)) {
            return count / 2 - away;
        }
    }
    FailDamaged(node.number, "voci dell'indice troppo lunghe");
}

}  // namespace

// A node of another writer that lists its last child is written anew: an entry that goes below that
// child may come behind the one that is listed.
IndexTree::Path IndexTree::Descend(const KeyBytes& entry)
{
    Path path;
    for (std::uint32_t page = index_.root;;) {
        IndexNode node = Load(page);
        const std::size_t at = node.LowerBound(entry);
        page = node.Child(at);
        const bool tail_listed = node.tail_listed;
        path.push_back({std::move(node), at, tail_listed});
        if (path.back().node.leaf) {
            return path;
        }
        if (path.size() == kMostLevels) {
            FailDamaged(page, "albero dell'indice senza foglie");
        }
    }
}

// Readers expect an entry in every node, so an only child is listed.
void IndexTree::Write(IndexNode node)
{
    if (!node.leaf && node.entries.empty()) {
        node.entries.push_back({LastBelow(node.tail), node.tail});
        node.tail = 0;
    }
    file_.Write(node.number, IndexPageImage(file_.Format(), node, owner_));
}

KeyBytes IndexTree::LastBelow(std::uint32_t page)
{
    IndexNode node = Load(page);
    for (std::size_t level = 0; !node.leaf && level < kMostLevels; ++level) {
        node = Load(node.tail);
    }
    if (!node.leaf || node.entries.empty()) {
        FailDamaged(node.number, "nodo dell'indice senza voci");
    }
    return node.entries.back().bytes;
}

std::uint32_t IndexTree::Allocate()
{
    const std::uint32_t page =
        PageAllocator(file_).Allocate(IndexPageImage(file_.Format(), {}, owner_));
    SetInUsageMap(file_, index_.map, page);
    return page;
}

// REQUIRES: `link` is &IndexNode::previous or &IndexNode::next.
void IndexTree::Relink(std::uint32_t page, std::uint32_t IndexNode::*link, std::uint32_t to)
{
    if (page != 0) {
        IndexNode neighbour = Load(page);
        neighbour.*link = to;
        Write(std::move(neighbour));
    }
}

void IndexTree::Insert(const KeyBytes& entry)
{
    Path path = Descend(entry);
    Step& leaf = path.back();
    if (leaf.at < leaf.node.entries.size() && leaf.node.entries[leaf.at].bytes == entry) {
        FailDamaged(leaf.node.number, "riga due volte nell'indice");
    }
    leaf.node.entries.insert(leaf.node.entries.begin() + static_cast<std::ptrdiff_t>(leaf.at),
                             {entry, 0});
    leaf.changed = true;
    Store(path);
}

// From the leaf upwards: what is done to a page changes at most its parent, which comes next.
void IndexTree::Store(Path& path)
{
    for (std::size_t level = path.size(); level-- > 0;) {
        auto& [node, at, changed] = path[level];
        if (!changed) {
            continue;
        }
        if (!node.leaf && node.entries.empty()) {
            if (level == 0) {
                CollapseRoot(std::move(node));
                return;
            }
            JoinNeighbour(path, level);
        }
        if (FitsIndexPage(file_.Format(), node, 0, node.entries.size())) {
            Write(node);
            continue;
        }
        const bool at_end = node.next == 0 && at + 1 >= node.entries.size();
        const std::size_t cut = ChooseCut(file_.Format(), node, at_end);
        if (level == 0) {
            SplitRoot(path, cut);
        } else {
            Split(path, level, cut);
        }
    }
}

// The root keeps its page, so both halves get new ones. Its level is counted, as some writers leave
// it 0 on every page.
void IndexTree::SplitRoot(Path& path, std::size_t cut)
{
    IndexNode& root = path.front().node;
    IndexNode left = std::move(root);
    IndexNode right;
    KeyBytes last = CutOff(left, cut, right);
    left.number = Allocate();
    right.number = Allocate();
    left.previous = 0;
    left.next = right.number;
    right.previous = left.number;
    Write(left);
    Write(right);
    root = {};
    root.number = index_.root;
    root.leaf = false;
    root.level = static_cast<std::uint8_t>(path.size());
    root.tail = right.number;
    root.entries.push_back({std::move(last), left.number});
    Write(root);
}

void IndexTree::Split(Path& path, std::size_t level, std::size_t cut)
{
    IndexNode& left = path[level].node;
    IndexNode right;
    KeyBytes last = CutOff(left, cut, right);
    right.number = Allocate();
    right.previous = left.number;
    right.next = left.next;
    left.next = right.number;
    Write(left);
    Write(right);
    Relink(right.next, &IndexNode::previous, right.number);

    auto& [parent, at, changed] = path[level - 1];
    if (at < parent.entries.size()) {
        parent.entries[at].child = right.number;
    } else {
        parent.tail = right.number;
    }
    parent.entries.insert(parent.entries.begin() + static_cast<std::ptrdiff_t>(at),
                          {std::move(last), left.number});
    changed = true;
}

KeyBytes IndexTree::EntryOf(RowPointer row)
{
    IndexNode leaf = Load(index_.root);
    for (std::size_t level = 0; !leaf.leaf; ++level) {
        if (level == kMostLevels) {
            FailDamaged(leaf.number, "albero dell'indice senza foglie");
        }
        leaf = Load(leaf.Child(0));
    }
    for (std::uint32_t leaves = 0; leaves <= file_.PageCount(); ++leaves) {
        for (const IndexEntry& entry : leaf.entries) {
            if (RowOfEntry(entry.bytes) == row) {
                return entry.bytes;
            }
        }
        if (leaf.next == 0) {
            break;
        }
        leaf = Load(leaf.next);
    }
    FailDamaged(leaf.number, "riga che manca nell'indice");
}

KeyBytes LeafEntry(const KeyBytes& key, RowPointer row)
{
    KeyBytes entry = key;
    for (int shift = 16; shift >= 0; shift -= 8) {
        entry.push_back(static_cast<std::uint8_t>(row.page >> shift));
    }
    entry.push_back(static_cast<std::uint8_t>(row.row));
    return entry;
}

}  // namespace jet
