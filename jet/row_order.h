#pragma once

#include "jet/bytes.h"

#include <optional>

namespace jet
{

/// One of the orders in which a cursor can go through a table. Nothing = there is no such row.
class RowOrder
{
public:
    virtual ~RowOrder() = default;

    virtual std::optional<RowPointer> First() = 0;
    virtual std::optional<RowPointer> Last() = 0;
    // From the row given last, by whatever member; there must be one.
    virtual std::optional<RowPointer> Next() = 0;
    virtual std::optional<RowPointer> Previous() = 0;

    /// The table has changed. The place stays, even when its row has gone: Next and Previous then
    /// lead to its neighbours.
    virtual void Refresh() = 0;
};

}  // namespace jet
