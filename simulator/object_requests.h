#pragma once

/// Names of what an Orlo or Sipa terminal is asked for, the first field of a request. No name is
/// the beginning of another, so that a fault can be given to one alone.
namespace orlo::simulator::request
{

inline constexpr const char* kStatus = "stato";              // -> capacity, free, marked
inline constexpr const char* kCount = "numero";              // -> records held
inline constexpr const char* kRecord = "record";             // number -> a record
inline constexpr const char* kNextRecord = "prossima";       // number -> a record from there on
inline constexpr const char* kMark = "marca";                // number
inline constexpr const char* kReadClock = "ora";             // -> date, time
inline constexpr const char* kSetClock = "regola";           // date, time
inline constexpr const char* kVersion = "versione";          // -> last build
inline constexpr const char* kReadFormat = "leggi-formato";  // -> a badge layout
inline constexpr const char* kSendFormat = "metti-formato";  // a badge layout
inline constexpr const char* kReadRings =
    "leggi-suonerie";  // day -> 24 times hour, minute, long of 2 digits
inline constexpr const char* kSendRing = "metti-suoneria";  // day, index, hour, minute, long
inline constexpr const char* kTelegram = "telegramma";      // command, parameters -> data

/// First field of an answer to a request that was obeyed, and the code when there is no record.
inline constexpr const char* kDone = "OK";
inline constexpr const char* kNoRecord = "ER";

}  // namespace orlo::simulator::request
