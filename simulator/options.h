#pragma once

#include "simulator/fault_plan.h"
#include "simulator/line.h"
#include "simulator/modem_settings.h"
#include "simulator/object_terminal_settings.h"
#include "simulator/terminal_settings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

struct Options {
    bool help = false;  // then nothing else counts
    std::string link;
    // Numbers differ; one of the two is empty.
    std::vector<TerminalSettings> terminals;
    std::vector<ObjectTerminalSettings> object_terminals;
    LineSettings line;
    std::optional<ModemSettings> modem;  // between the port and the line
    std::vector<FaultRule> faults;
    std::string journal_path;  // empty: none
    std::string state_path;    // empty: none
};

/// The command line. Throws UsageError.
Options ParseOptions(int argc, char** argv);

/// What --help prints.
std::string_view HelpText();

}  // namespace orlo::simulator
