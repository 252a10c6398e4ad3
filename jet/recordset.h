#pragma once

#include "jet/error.h"
#include "jet/value.h"

#include <memory>
#include <string_view>
#include <vector>

namespace jet
{

/// A table-type cursor: it stands on one row, before the first or behind the last, in an empty
/// table both at once, and nowhere after a search without result or a move that failed.
/// Every member may report kDamagedFile or kDiskError.
class Recordset
{
public:
    virtual ~Recordset() = default;

    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    /// Errors: kNoCurrentRecord when the cursor already stands behind the last row or nowhere.
    virtual void MoveNext() = 0;
    /// Errors: kNoCurrentRecord when the cursor already stands before the first row or nowhere.
    virtual void MovePrevious() = 0;
    virtual bool AtBof() const = 0;
    virtual bool AtEof() const = 0;

    /// Number of rows.
    virtual std::size_t RecordCount() = 0;

    /// The current row's value. Errors: kColumnNotFound, whose text holds the column's name and
    /// no other name from the file; kNoCurrentRecord.
    virtual Value Field(std::u16string_view column) = 0;

    /// Chooses the order of the rows and the index of Seek; the empty name goes back to the file's
    /// own order. The cursor goes to the first row. Errors: kIndexNotFound.
    virtual void SetIndex(std::u16string_view name) = 0;

    /// Moves to the first row whose key equals the values, one per index column in order. When
    /// there is none, NoMatch() is true and no row is current.
    /// Errors: kNoIndexSelected, kInvalidArgument (wrong number or kind of values, or a text that
    /// the index's sort order has no code for); the cursor then stays where it is.
    virtual void Seek(const std::vector<Value>& key) = 0;
    virtual bool NoMatch() const = 0;
};

}  // namespace jet
