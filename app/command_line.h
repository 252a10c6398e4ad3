#pragma once

#include "link/qt_serial_port.h"
#include "registry/widgets/theme.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace orlo
{

/// What the program was started with.
struct CommandLine {
    QString configuration_file;
    PortDevices devices;
    /// The library of the protocol component of Orlo and Sipa terminals.
    QString component_file;
    Theme theme = Theme::Desktop;
    QString trace_file;
    QString punch_file;
    /// Terminals to acquire unattended, in the order given.
    std::vector<int> acquire;
    /// Terminals whose clocks are to be set unattended, in the order given.
    std::vector<int> set_clock;

    bool Unattended() const { return !acquire.empty() || !set_clock.empty(); }
};

/// Why the command line cannot be followed, or what was asked to be shown instead of running.
struct CommandLineMessage {
    QString text;
    bool is_error = false;
};

struct ParsedCommandLine {
    CommandLine command_line;
    std::optional<CommandLineMessage> message;
};

/// `arguments` begin with the program's name. `program_folder` is where the default configuration
/// file and the default component are looked for.
ParsedCommandLine ParseCommandLine(const QStringList& arguments, const QString& program_folder);

}  // namespace orlo
