#include "acquisition/record_acceptance.h"

namespace orlo
{

namespace
{

constexpr std::size_t kMostBytesOfLine = 32 + 2;

}  // namespace

RecordAcceptance::RecordAcceptance(PunchFile& file, component::RecordData& object)
    : file_(file), object_(object)
{
}

bool RecordAcceptance::SecureRoom()
{
    return file_.SecureRoom(kMostBytesOfLine);
}

RecordAcceptance::Result RecordAcceptance::Store()
{
    last_record_ = ReadObjectRecord(object_);
    if (!IsForPunchFile(last_record_)) return Result::Skipped;
    const ObjectLine composed = ComponeRigaOggetto(last_record_);
    fault_ = composed.fault;
    if (!fault_.isEmpty()) return Result::Unwritable;
    return file_.Append(composed.line + "\r\n") && file_.Sync() ? Result::Stored
                                                                : Result::NotStored;
}

}  // namespace orlo
