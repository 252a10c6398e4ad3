#pragma once

#include "acquisition/object_record.h"
#include "acquisition/punch_file.h"

namespace orlo
{

/// The one place where a record of an object-driven terminal is accepted: stored, then marked in
/// the terminal as acquired.
///
///  1. Room for a line is secured before a record is fetched.
///  2. A record is marked only after its line is on the disk.
///
/// A record that was stored and could not be marked is delivered again and written again: nothing
/// tells it from a second, equal punch, and a punch written twice does less harm than a lost one.
class RecordAcceptance
{
public:
    enum class Result { Stored, Skipped, Unwritable, NotStored };

    RecordAcceptance(PunchFile& file, component::RecordData& object);

    [[nodiscard]] bool SecureRoom();

    /// Puts the line of the component's current record on the disk, if the record is one for the
    /// punch file.
    [[nodiscard]] Result Store();

    /// Marks the record that was stored; false when the terminal did not take the mark.
    [[nodiscard]] bool Mark() { return object_.SetAsDeleted(); }

    const ObjectRecord& LastRecord() const { return last_record_; }
    /// Why the last record is unwritable.
    const QString& Fault() const { return fault_; }
    const QString& StoreError() const { return file_.Error(); }

private:
    PunchFile& file_;
    component::RecordData& object_;
    ObjectRecord last_record_;
    QString fault_;
};

}  // namespace orlo
