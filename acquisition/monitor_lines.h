#pragma once

#include "acquisition/object_record.h"
#include "registry/terminal_type.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace orlo
{

// A line of the monitor. Its columns begin under the words of the heading:
//
//   column  text
//   1       running number, four digits at least
//   9       badge
//   17      date dd/mm/ccyy
//   31      time
//   41      type: "Entrata", "Uscita", blanks for any other event
//   54      cause
//   63      state
//   77      terminal, of an object-driven model only
//
// A text that is too long for its column pushes the next one behind a blank, and only as far as it
// must.

inline constexpr std::string_view kMonitorHeading =
    "Numero  Badge   Data          Ora       Tipo         Causale  Stato";

// States, by family; the first of each is that of a punch still to be acquired.
inline constexpr std::array<const char*, 2> kSerialStates = {"Da Acquisire", "Acquisita"};
inline constexpr std::array<const char*, 2> kObjectStates = {"Non Inviata", "Inviata"};

/// One punch in the texts of its line.
struct MonitorPunch {
    int number = 0;  ///< running number, from 1
    std::string badge;
    std::string date;
    std::string time;
    std::string type;
    std::string cause;
    std::string terminal;
    std::string state;
    /// Whether it is still to be acquired, which its state says in words.
    bool to_acquire = false;
};

/// The line of a punch, without an end of line.
/// Example: "0007    123456  15/03/2006    08:30     Entrata      0001     Da Acquisire".
std::string ComponeRigaMonitor(const MonitorPunch& punch);

/// What the punches of a serial model are told by.
struct MonitorRules {
    int type_code = 0;
    /// Punches up to this running number are still to be acquired: the newest come first.
    int to_acquire = 0;
};

/// By the pointers of the punch memory.
MonitorRules MonitorRulesFor(int type_code, MemoryCounting counting, const std::string& TPnt,
                             const std::string& TpntOld);

/// Takes an answer to "30…" apart: records of 26 characters up to one that begins with "END". What
/// is left over and shorter than a record is none. The first record has the number `first`.
std::vector<MonitorPunch> DecodeMonitorAnswer(std::string_view answer, int first,
                                              const MonitorRules& rules);

/// A record of the protocol component. `cause` is its Cause; one of direction "Info" is shown with
/// its personal cause.
MonitorPunch MonitorPunchOf(int number, const ObjectRecord& record, const std::string& cause);

}  // namespace orlo
