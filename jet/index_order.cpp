#include "jet/index_order.h"

#include "jet/failure.h"

#include <algorithm>

namespace jet
{

namespace
{

// A node has two children or more and a page number 24 bits: no tree is deeper.
constexpr int kMostLevels = 24;

std::uint32_t FirstChild(const IndexPage& node)
{
    return node.EntryCount() > 0 ? node.Child(0) : node.Tail();
}

std::uint32_t LastChild(const IndexPage& node)
{
    return node.Tail() != 0 || node.EntryCount() == 0 ? node.Tail()
                                                      : node.Child(node.EntryCount() - 1);
}

}  // namespace

IndexPage IndexOrder::Load(std::uint32_t page)
{
    return IndexPage(file_.Format(), file_.Read(page), owner_);
}

template <typename ChooseChild>
void IndexOrder::Descend(ChooseChild choose)
{
    leaf_.reset();
    IndexPage page = Load(root_);
    for (int level = 0; !page.IsLeaf(); ++level) {
        if (level == kMostLevels) {
            FailDamaged(page.Number(), "albero dell'indice senza foglie");
        }
        page = Load(choose(page));
    }
    leaf_.emplace(std::move(page));
}

// To the neighbour leaf, before its first entry or behind its last.
bool IndexOrder::StepLeaf(Direction direction)
{
    const bool forward = direction == Direction::Forward;
    const std::uint32_t neighbour = forward ? leaf_->Next() : leaf_->Previous();
    if (neighbour == 0) {
        return false;
    }
    IndexPage page = Load(neighbour);
    if (!page.IsLeaf()) {
        FailDamaged(neighbour, "non è una foglia dell'indice");
    }
    leaf_.emplace(std::move(page));
    at_ = forward ? 0 : leaf_->EntryCount();
    return true;
}

// Leaves at_ on an entry (forward) or behind one (backward). Empty leaves cannot show that the way
// leads in a circle, so they are counted.
bool IndexOrder::SkipEmptyLeaves(Direction direction)
{
    const auto exhausted = [&] {
        return direction == Direction::Forward ? at_ >= leaf_->EntryCount() : at_ == 0;
    };
    for (std::uint32_t steps = 0; exhausted(); ++steps) {
        if (steps > file_.PageCount()) {
            FailDamaged(leaf_->Number(), "foglie dell'indice in circolo");
        }
        if (!StepLeaf(direction)) {
            return false;
        }
    }
    return true;
}

RowPointer IndexOrder::TakeEntry()
{
    leaf_->CopyEntry(at_, entry_);
    between_ = false;
    return RowOfEntry(entry_);
}

std::optional<RowPointer> IndexOrder::First()
{
    Descend(FirstChild);
    at_ = 0;
    if (!SkipEmptyLeaves(Direction::Forward)) {
        return std::nullopt;
    }
    return TakeEntry();
}

std::optional<RowPointer> IndexOrder::Last()
{
    Descend(LastChild);
    at_ = leaf_->EntryCount();
    if (!SkipEmptyLeaves(Direction::Backward)) {
        return std::nullopt;
    }
    --at_;
    return TakeEntry();
}

std::optional<RowPointer> IndexOrder::Step(Direction direction)
{
    const bool forward = direction == Direction::Forward;
    at_ += forward && !between_ ? 1 : 0;
    if (!SkipEmptyLeaves(direction)) {
        return std::nullopt;
    }
    at_ -= forward ? 0 : 1;
    entry_.swap(previous_);
    const RowPointer row = TakeEntry();
    if (forward ? entry_ <= previous_ : entry_ >= previous_) {
        FailDamaged(leaf_->Number(), "indice non ordinato");
    }
    return row;
}

std::optional<RowPointer> IndexOrder::Next()
{
    return Step(Direction::Forward);
}

std::optional<RowPointer> IndexOrder::Previous()
{
    return Step(Direction::Backward);
}

// To the first entry of the leaf that is not before `wanted`, or behind its last.
void IndexOrder::DescendTo(const KeyBytes& wanted)
{
    Descend([&](const IndexPage& node) {
        const std::size_t child = node.LowerBound(wanted);
        return child < node.EntryCount() ? node.Child(child) : LastChild(node);
    });
    at_ = leaf_->LowerBound(wanted);
}

void IndexOrder::StandOn(const KeyBytes& entry)
{
    entry_ = entry;
    Refresh();
}

void IndexOrder::Refresh()
{
    DescendTo(entry_);
    between_ = true;
    if (at_ < leaf_->EntryCount()) {
        KeyBytes found;
        leaf_->CopyEntry(at_, found);
        between_ = found != entry_;
    }
}

// Entries compare as bytes, row pointers included, so a longer key that begins like the wanted one
// may come before it. Only the key of an empty binary value is the beginning of others.
std::optional<RowPointer> IndexOrder::Seek(const KeyBytes& key)
{
    DescendTo(key);
    if (!SkipEmptyLeaves(Direction::Forward)) {
        return std::nullopt;
    }
    const auto begins_like_key = [&] {
        return entry_.size() >= key.size() && std::equal(key.begin(), key.end(), entry_.begin());
    };
    for (std::optional row = TakeEntry(); row && begins_like_key(); row = Next()) {
        if (KeyOfEntry(entry_).size() == key.size()) {
            return row;
        }
    }
    return std::nullopt;
}

}  // namespace jet
