#include "status/clock_command.h"

#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"

namespace orlo
{

ClockOutcome ClockNotDone(const QString& reason)
{
    return {.done = false, .reason = reason};
}

ClockOutcome DoClockCommand(Contenitore& window, const std::function<ClockOutcome()>& work)
{
    const TextPanel& caption = *window.Controls().PannelloComunicazione;
    window.Controls().PannelloComunicazione->clear();
    ClockOutcome outcome = ClockNotDone({});
    const QString thrown = GuardComponentCalls(window, [&] {
        outcome = window.PrepareCurrentTerminal() ? work() : ClockNotDone(caption.text());
    });
    if (!thrown.isEmpty()) outcome = ClockNotDone(thrown);
    // The component's answers leave no caption behind.
    if (caption.text().isEmpty())
        window.NoteOutcome(outcome.done ? kCommunicationOk : outcome.reason);
    // A line that may still be up costs money, whatever the clock shows.
    if (!window.HangUpBehindCommand() && outcome.done) outcome = ClockNotDone(caption.text());
    return outcome;
}

QString TellClockError(Contenitore& window, component::TimeData& time)
{
    QString text = QStringLiteral("Errore = ") + ComponentText(time.ReceivedCommand());
    window.Station().dialog.Tell(DialogIcon::Critical, QStringLiteral("Comunicazione"), text);
    return text;
}

}  // namespace orlo
