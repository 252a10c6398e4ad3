#pragma once

#include "registry/terminal_type.h"

#include <string>
#include <string_view>

namespace orlo
{

/// What the answer to "03" says about the terminal itself.
struct StateAndVersion {
    std::string state;
    std::string version;
};

/// What it says about the terminal's clock.
struct DateAndTime {
    std::string date;
    std::string time;
};

// Any text is cut, kRxError among them; one that is too short gives what it has.

/// The character at the end of the state is also the first of the version: both panels show it.
StateAndVersion CutStateAndVersion(const StatusAnswerLayout& layout, std::string_view answer);

DateAndTime CutDateAndTime(const StatusAnswerLayout& layout, std::string_view answer);

}  // namespace orlo
