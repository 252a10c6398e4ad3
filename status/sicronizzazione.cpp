#include "status/sicronizzazione.h"

#include "link/telegram.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"
#include "registry/wait_terminal_delay.h"
#include "status/legge_data_ora.h"
#include "status/set_clock_command.h"
#include "status/terminal_question.h"

#include <utility>

namespace orlo
{

namespace
{

ClockOutcome SetSerialClock(Contenitore& window)
{
    const PortSession session(window);
    if (session.Port() == nullptr) return ClockNotDone(session.Refusal());
    const std::string answer =
        AskTerminal(window, *session.Port(), SetClockCommand(window.Station().clock));
    if (answer == kTimeout) return ClockNotDone(window.Controls().PannelloComunicazione->text());
    // Shown as an answer like any other; whether the terminal has taken the time is not known.
    if (answer == kRxError) return ClockNotDone(QStringLiteral("la risposta è arrivata guasta"));
    return {.done = true, .reason = {}};
}

ClockOutcome SetObjectClock(Contenitore& window)
{
    ProgramState& state = window.State();
    if (state.Component == nullptr)
        return ClockNotDone(window.Controls().PannelloComunicazione->text());
    component::TimeData& time = *state.Component->TimeDataObject;
    WaitTerminalDelay(state, window.Station());
    time.GetSystem();
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] = std::pair(state.CurrentTerminalNumber, state.CurrentPriority);
    if (!time.Send(terminal, priority)) return ClockNotDone(TellClockError(window, time));
    return LeggeDataOra(window);
}

}  // namespace

ClockOutcome cmdSincro_Click(Contenitore& window)
{
    return DoClockCommand(window, [&window] { return Sicronizzazione(window); });
}

ClockOutcome Sicronizzazione(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return ClockNotDone(kUnknownType);
    return model->family == LinkFamily::Serial ? SetSerialClock(window) : SetObjectClock(window);
}

}  // namespace orlo
