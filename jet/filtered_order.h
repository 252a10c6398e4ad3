#pragma once

#include "jet/row_order.h"

#include <functional>
#include <memory>

namespace jet
{

/// Another order without the rows that do not match.
class FilteredOrder final : public RowOrder
{
public:
    using Match = std::function<bool(RowPointer)>;

    FilteredOrder(std::unique_ptr<RowOrder> base, Match match)
        : base_(std::move(base)), match_(std::move(match))
    {
    }

    std::optional<RowPointer> First() override { return Skip(base_->First(), &RowOrder::Next); }
    std::optional<RowPointer> Last() override { return Skip(base_->Last(), &RowOrder::Previous); }
    std::optional<RowPointer> Next() override { return Skip(base_->Next(), &RowOrder::Next); }
    std::optional<RowPointer> Previous() override
    {
        return Skip(base_->Previous(), &RowOrder::Previous);
    }
    void Refresh() override { base_->Refresh(); }

private:
    std::optional<RowPointer> Skip(std::optional<RowPointer> row,
                                   std::optional<RowPointer> (RowOrder::*step)())
    {
        while (row && !match_(*row)) {
            row = ((*base_).*step)();
        }
        return row;
    }

    std::unique_ptr<RowOrder> base_;
    Match match_;
};

}  // namespace jet
