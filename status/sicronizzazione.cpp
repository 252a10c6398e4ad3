#include "status/sicronizzazione.h"

#include "link/telegram.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"
#include "status/set_clock_command.h"
#include "status/terminal_question.h"

namespace orlo
{

namespace
{

ClockSetting NotDone(const QString& reason)
{
    return {.done = false, .reason = reason};
}

ClockSetting SetSerialClock(Contenitore& window)
{
    const PortSession session(window);
    const TextPanel& caption = *window.Controls().PannelloComunicazione;
    if (session.Port() == nullptr) return NotDone(caption.text());
    const std::string answer =
        AskTerminal(window, *session.Port(), SetClockCommand(window.Station().clock));
    if (answer == kTimeout) return NotDone(caption.text());
    // Shown as an answer like any other; whether the terminal has taken the time is not known.
    if (answer == kRxError) return NotDone(QStringLiteral("la risposta è arrivata guasta"));
    return {.done = true, .reason = {}};
}

}  // namespace

ClockSetting cmdSincro_Click(Contenitore& window)
{
    window.Controls().PannelloComunicazione->clear();
    window.PrepareCurrentTerminal();
    return Sicronizzazione(window);
}

ClockSetting Sicronizzazione(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return NotDone(QStringLiteral("il tipo di terminale non è conosciuto"));
    return SetSerialClock(window);
}

}  // namespace orlo
