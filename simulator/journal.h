#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// What the line tells of one telegram.
struct JournalEntry {
    int address = 0;      // -1 when it had none
    std::string command;  // as received
    std::string deed;     // what the terminal did, in Italian
    std::string answer;   // data of its answer before any fault, empty when it gave none
};

using Journal = std::function<void(const JournalEntry&)>;

/// "time address command deed answer", separated by tabs, the address of two digits. What is no
/// printable ASCII character is written "\xNN", a backslash too.
std::string JournalLine(std::string_view time, const JournalEntry& entry);

/// A journal that appends to a file, each line written through with the local date and time to
/// the millisecond. Throws std::system_error when the file cannot be opened.
Journal FileJournal(const std::string& path);

}  // namespace orlo::simulator
