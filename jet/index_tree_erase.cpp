#include "jet/failure.h"
#include "jet/index_tree.h"
#include "jet/page_allocator.h"
#include "jet/usage_map_writer.h"

#include <utility>

// Erasing. A leaf goes away when it is empty, a node when it has one child left; pages that are
// merely thin stay.

namespace jet
{

void IndexTree::Release(std::uint32_t page)
{
    ClearInUsageMap(file_, index_.map, page);
    PageAllocator(file_).Free(page);
}

void IndexTree::Erase(const KeyBytes& entry)
{
    Path path = Descend(entry);
    const std::size_t level = path.size() - 1;
    auto& [leaf, at, changed] = path[level];
    if (at >= leaf.entries.size() || leaf.entries[at].bytes != entry) {
        FailDamaged(leaf.number, "riga che manca nell'indice");
    }
    leaf.entries.erase(leaf.entries.begin() + static_cast<std::ptrdiff_t>(at));
    if (leaf.entries.empty() && level > 0) {
        RemovePage(path, level);
    } else {
        changed = true;
        if (at == leaf.entries.size() && level > 0) {
            NoteLastEntry(path, level, leaf.entries.back().bytes);
        }
    }
    Store(path);
}

// The last entry below the node has become another: the key that repeats it lies at the lowest
// level above where the way down does not lead into the tail.
void IndexTree::NoteLastEntry(Path& path, std::size_t level, const KeyBytes& last)
{
    while (level-- > 0) {
        auto& [node, at, changed] = path[level];
        if (at < node.entries.size()) {
            node.entries[at].bytes = last;
            changed = true;
            return;
        }
    }
}

// REQUIRES: the page is not the root, and nothing is left on it.
void IndexTree::RemovePage(Path& path, std::size_t level)
{
    auto& [node, at, changed] = path[level];
    changed = false;
    Relink(node.previous, &IndexNode::next, node.next);
    Relink(node.next, &IndexNode::previous, node.previous);
    Release(node.number);
    RemoveChild(path, level - 1);
}

// Drops the child that the path leads to. A node that had no other goes as well; the root becomes
// an empty leaf.
void IndexTree::RemoveChild(Path& path, std::size_t level)
{
    auto& [node, at, changed] = path[level];
    changed = true;
    if (at < node.entries.size()) {
        node.entries.erase(node.entries.begin() + static_cast<std::ptrdiff_t>(at));
    } else if (!node.entries.empty()) {
        const KeyBytes last = std::move(node.entries.back().bytes);
        node.tail = node.entries.back().child;
        node.entries.pop_back();
        NoteLastEntry(path, level, last);
    } else if (level > 0) {
        RemovePage(path, level);
    } else {
        node = {};
        node.number = index_.root;
    }
}

// A root with a single child takes its content over.
void IndexTree::CollapseRoot(IndexNode root)
{
    for (std::size_t level = 0; !root.leaf && root.entries.empty(); ++level) {
        if (level == kMostLevels) {
            FailDamaged(root.number, "albero dell'indice senza foglie");
        }
        root = Load(root.tail);
        Release(root.number);
    }
    root.number = index_.root;
    root.previous = 0;
    root.next = 0;
    Write(std::move(root));
}

// A node with a single child gives it to the node before it, or to the one behind when it is the
// first of its parent, and goes away. The neighbour takes its place on the path.
void IndexTree::JoinNeighbour(Path& path, std::size_t level)
{
    IndexNode& node = path[level].node;
    auto& [parent, at, changed] = path[level - 1];
    if (parent.entries.empty()) {
        return;  // no neighbour, as other writers leave it: the child stays alone
    }
    changed = true;
    IndexNode joined;
    if (at > 0) {
        IndexEntry& before = parent.entries[at - 1];
        joined = Load(before.child);
        joined.entries.push_back({std::move(before.bytes), joined.tail});
        joined.tail = node.tail;
        joined.next = node.next;
        Relink(node.next, &IndexNode::previous, joined.number);
        --at;
        parent.entries.erase(parent.entries.begin() + static_cast<std::ptrdiff_t>(at));
        if (at < parent.entries.size()) {
            parent.entries[at].child = joined.number;
        } else {
            parent.tail = joined.number;
        }
    } else {
        joined = Load(parent.Child(1));
        joined.entries.insert(joined.entries.begin(),
                              {std::move(parent.entries.front().bytes), node.tail});
        joined.previous = node.previous;
        Relink(node.previous, &IndexNode::next, joined.number);
        parent.entries.erase(parent.entries.begin());
    }
    Release(node.number);
    path[level] = {std::move(joined), 0, true};
}

}  // namespace jet
