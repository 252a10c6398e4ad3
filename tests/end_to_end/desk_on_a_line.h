#pragma once

#include "app/desk.h"
#include "registry/start_up.h"
#include "registry/terminal_lines.h"
#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

#include <memory>

namespace orlo::end_to_end
{

inline QString PathOf(const Installation& installation, const char* name)
{
    return QString::fromStdString(installation.PathOf(name));
}

/// The program's own window, with its buttons wired, over the installation's register and its line
/// on COM1, with that terminal selected. Not yet shown.
inline std::unique_ptr<Desk> DeskOnALine(const Installation& installation, int terminal,
                                         OperatorDialog& dialog, LineTrace& trace)
{
    CommandLine command_line;
    command_line.configuration_file = PathOf(installation, "Configurazione.ini");
    command_line.devices[0] = PathOf(installation, "com1");
    command_line.component_file = QStringLiteral(ORLO_COMPONENT_PATH);
    auto desk = std::make_unique<Desk>(command_line, dialog, trace);
    const StartUpOutcome start_up =
        StartUp(desk->Window(), command_line.configuration_file, desk->Component());
    EXPECT_EQ(start_up.end, StartUpOutcome::End::Complete) << start_up.reason.toStdString();
    EXPECT_TRUE(SelectTerminal(desk->Window(), terminal));
    return desk;
}

}  // namespace orlo::end_to_end
