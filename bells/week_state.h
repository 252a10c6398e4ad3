#pragma once

#include <QString>

namespace orlo
{

/// What RingTable knows of a terminal's week. Sending overwrites the whole of it.
enum class WeekState {
    Unread,
    Edited,          ///< without having been read
    Partial,         ///< some days were read
    PartialChanged,  ///< the same, and edited since
    Known,           ///< read or sent
    Changed          ///< read or sent, and edited since
};

/// After a read that brought so many of the 168 rings.
WeekState AfterRead(int rings);

WeekState AfterEdit(WeekState before);

/// Whether sending is what follows, not reading.
bool IsToBeSent(WeekState state);

/// What the operator should know before sending; empty when nothing.
QString WeekWarning(WeekState state);

}  // namespace orlo
