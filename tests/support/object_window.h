#pragma once

#include "tests/support/connected_window.h"
#include "tests/support/fake_object_terminal.h"

namespace orlo::testing
{

/// The main window with a fake component behind terminal 4, an Orlo or a Sipa of priority 7.
class ObjectWindow : public ConnectedWindow
{
protected:
    FakeObjectTerminal terminal;

    void Connect(const char* model = "Orlo", float delay = 0)
    {
        state.Component = terminal.Make();
        RegisterObject(model);
        TerminalRecord& slot = state.TerminalTable.at(kTerminal - 1);
        slot.Velocita = 38400;
        slot.Ritardo = delay;
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
    }

    using Calls = std::vector<std::string>;
    const Calls& CallsMade() const { return terminal.component.calls; }

    /// From now on that call throws.
    void LetThrow(const std::string& call)
    {
        terminal.component.on_call = [call](const std::string& made) {
            if (made == call) throw std::runtime_error("guasto");
        };
    }

    /// What the operator was told in the only box so far.
    QString Told(DialogIcon icon) const
    {
        EXPECT_EQ(pc.dialog.told.size(), 1U);
        if (pc.dialog.told.empty()) return {};
        EXPECT_EQ(pc.dialog.told.front().icon, icon);
        EXPECT_EQ(pc.dialog.told.front().title, QStringLiteral("Comunicazione"));
        return pc.dialog.told.front().text;
    }
};

}  // namespace orlo::testing
