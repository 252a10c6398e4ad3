#pragma once

#include "jet/index_page.h"
#include "jet/row_order.h"

namespace jet
{

/// The order of an index, along its leaves. Every step must lead to a greater entry (backwards to a
/// smaller one): that the index is sorted is checked on the way, and no damaged link can lead
/// round in a circle.
class IndexOrder final : public RowOrder
{
public:
    /// `owner` is the definition page of the table. The file must outlive the order.
    IndexOrder(PageFile& file, std::uint32_t owner, std::uint32_t root)
        : file_(file), owner_(owner), root_(root)
    {
    }

    std::optional<RowPointer> First() override;
    std::optional<RowPointer> Last() override;
    std::optional<RowPointer> Next() override;
    std::optional<RowPointer> Previous() override;
    void Refresh() override;

    /// Makes an entry the place, there or not.
    void StandOn(const KeyBytes& entry);

    /// The first row with exactly this key.
    std::optional<RowPointer> Seek(const KeyBytes& key);

private:
    enum class Direction { Forward, Backward };

    IndexPage Load(std::uint32_t page);
    template <typename ChooseChild>
    void Descend(ChooseChild choose);
    void DescendTo(const KeyBytes& wanted);
    bool StepLeaf(Direction direction);
    bool SkipEmptyLeaves(Direction direction);
    std::optional<RowPointer> Step(Direction direction);
    RowPointer TakeEntry();

    PageFile& file_;
    std::uint32_t owner_;
    std::uint32_t root_;
    std::optional<IndexPage> leaf_;
    std::size_t at_ = 0;
    bool between_ = false;  // the current entry has gone; at_ is that of the next one
    KeyBytes entry_;        // the current one
    KeyBytes previous_;     // the one that the cursor stood on before
};

}  // namespace jet
