#pragma once

#include "link/protocol_component.h"

#include <QString>

#include <string>
#include <string_view>

namespace orlo
{

/// The component's code for "no more records".
inline constexpr std::string_view kNoMoreRecords = "ER";

/// One punch as the protocol component delivers it, in the component's own words.
struct ObjectRecord {
    std::string Type;       ///< "Presenze", "Informazioni", "Accessi"
    std::string Date;       ///< dd/mm/yyyy
    std::string Time;       ///< hh:mm…
    std::string Direction;  ///< "Entrata", "Uscita", "Info"
    std::string IdNumber;   ///< badge
    std::string TerminalNo;
    std::int32_t PersonalCause = 0;
    bool Deleted = false;  ///< already acquired
};

ObjectRecord ReadObjectRecord(component::RecordData& object);

/// Whether a record goes into the punch file: not yet acquired, and of attendance or information.
/// Access records are nothing for the payroll and stay in the terminal unmarked.
bool IsForPunchFile(const ObjectRecord& record);

/// The line of a record without its CR LF, or why there can be none.
struct ObjectLine {
    std::string line;
    QString fault;
};

/// The line of a record, in the standard layout whatever layout is set for the serial models:
///
///   position  length  content
///   1         2       "31"
///   3         8       date CCYYMMDD
///   11        4       time HHMM
///   15        3       "000"
///   18        1       "1" Entrata, "2" Uscita, "I" Info; missing for any other direction, whose
///                     line is one character shorter
///   19        10      badge, zeros before it
///   29        2       cause, zeros before it
///   31        2       terminal number, zeros before it
///
/// Entry and exit carry the badge and the last two characters of PersonalCause. "Info" says by
/// PersonalCause what happened: 1000 cause "OF", badge 0; 1001 "ON", badge 0; 1002 "IN" with the
/// badge; anything else, as any other direction, neither badge nor cause.
ObjectLine ComponeRigaOggetto(const ObjectRecord& record);

}  // namespace orlo
