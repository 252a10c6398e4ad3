#pragma once

#include "jet/error.h"
#include "jet/value.h"

#include <memory>
#include <string_view>
#include <vector>

namespace jet
{

/// A cursor on the rows of a table or of a query: it stands on one row, before the first or behind
/// the last, in an empty table both at once, and nowhere after a search without result or a move
/// that failed. Every member may report kDamagedFile or kDiskError.
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
    /// own order. The cursor goes to the first row. Errors: kIndexNotFound; kNotSupported for a
    /// query.
    virtual void SetIndex(std::u16string_view name) = 0;

    /// Moves to the first row whose key equals the values, one per index column in order. When
    /// there is none, NoMatch() is true and no row is current.
    /// Errors: kNoIndexSelected, kInvalidArgument (wrong number or kind of values, or a text that
    /// the index's sort order has no code for); the cursor then stays where it is.
    virtual void Seek(const std::vector<Value>& key) = 0;
    virtual bool NoMatch() const = 0;

    // Changes, in a database opened for them (else kReadOnly). Edit or AddNew begins one, SetField
    // fills it in, Update makes it. Moving or searching gives it up. Each Update or Delete is done
    // as a whole or not at all, with all indexes; behind an error nothing has changed.

    /// Begins a change of the current row. Errors: kReadOnly, kNoCurrentRecord.
    virtual void Edit() = 0;
    /// Begins a new row, all Null and False. Errors: kReadOnly.
    virtual void AddNew() = 0;
    /// Field gives the new value from now on. Whole numbers are taken by every kind of number,
    /// single and double by each other. Errors, which name the column: kColumnNotFound;
    /// kNoEditBegun; kWrongType, kFieldOverflow, kFieldTooSmall for a value that the column cannot
    /// hold; kNotSupported for autonumbers and for memo and OLE columns, which stay as they are.
    virtual void SetField(std::u16string_view column, const Value& value) = 0;
    /// After Edit the cursor stands on the row changed, after AddNew where it stood before.
    /// Errors: kNoEditBegun; kDuplicateKey, kNullInKey; kNotSupported for an index that the engine
    /// cannot keep; kRecordTooLong; kDiskFull. The change can then be corrected and made again.
    virtual void Update() = 0;
    virtual void CancelUpdate() = 0;
    /// Removes the current row; none is current then, and MoveNext goes to the one behind it.
    /// Errors: kReadOnly, kNoCurrentRecord.
    virtual void Delete() = 0;
};

}  // namespace jet
