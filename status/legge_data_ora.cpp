#include "status/legge_data_ora.h"

#include "link/telegram.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/held_line.h"
#include "registry/port_session.h"
#include "registry/wait_terminal_delay.h"
#include "status/status_answer.h"
#include "status/terminal_question.h"

#include <utility>

namespace orlo
{

namespace
{

constexpr double kDaySeconds = 86400;
/// Writing to a port that takes nothing, a tick's wait, and the steps of its clock.
constexpr double kTickSeconds = 5;

void ShowClock(Contenitore& window, const QString& date, const QString& time,
               const QString& pc_date, const QString& pc_time)
{
    const Ui::Contenitore& controls = window.Controls();
    controls.OraTerminale->setText(time);
    controls.DataTerminale->setText(date);
    controls.Sistema->setText(pc_date + QStringLiteral(" - ") + pc_time);
    window.NameClockTerminal(window.State().CurrentTerminalNumber);
}

ClockOutcome ReadSerialClock(Contenitore& window, const TerminalModel& model)
{
    // Whose the caption is, also when nothing is answered.
    window.NameClockTerminal(window.State().CurrentTerminalNumber);
    PortSession session(window);
    if (session.Port() == nullptr) return ClockNotDone(session.Refusal());
    const std::string answer = AskTerminal(window, *session.Port(), "03");
    if (answer == kTimeout) return ClockNotDone(window.Controls().PannelloComunicazione->text());
    const DateAndTime cut = CutDateAndTime(model.status_answer, answer);
    Clock& clock = window.Station().clock;
    ShowClock(window, AnswerText(cut.date), AnswerText(cut.time),
              clock.Date().toString(QStringLiteral("dd/MM/yyyy")),
              clock.Time().toString(QStringLiteral("HH:mm:ss")));
    return {.done = true, .reason = {}};
}

ClockOutcome ReadObjectClock(Contenitore& window)
{
    ProgramState& state = window.State();
    if (state.Component == nullptr)
        return ClockNotDone(window.Controls().PannelloComunicazione->text());
    component::TimeData& time = *state.Component->TimeDataObject;
    WaitTerminalDelay(state, window.Station());
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] = std::pair(state.CurrentTerminalNumber, state.CurrentPriority);
    if (!time.Receive(terminal, priority)) return ClockNotDone(TellClockError(window, time));
    const QString terminal_time = ComponentText(time.Time());
    const QString terminal_date = ComponentText(time.Date());
    time.GetSystem();
    ShowClock(window, terminal_date, terminal_time, ComponentText(time.Date()),
              ComponentText(time.Time()));
    return {.done = true, .reason = {}};
}

}  // namespace

void cmdLeggeOra_Click(Contenitore& window)
{
    DoClockCommand(window, [&window] { return LeggeDataOra(window); });
}

ClockOutcome LeggeDataOra(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return ClockNotDone(kUnknownType);
    return model->family == LinkFamily::Serial ? ReadSerialClock(window, *model)
                                               : ReadObjectClock(window);
}

void Timer1_Timer(Contenitore& window)
{
    const TerminalModel* const model = window.State().CurrentModel;
    if (model == nullptr || model->family != LinkFamily::Serial) return;
    // Only a command is told that the open line is another terminal's.
    if (window.LineIsOpen() && window.State().SessionPort != window.State().CurrentPort) return;
    // Without a call the modem would take the telegram for a command, and the caption of the dial
    // or of the log-off would be gone within a second.
    if (window.State().CurrentModem && !window.LineIsOpen()) {
        ClosePortLeftOpen(window);
        return;
    }
    // A wait that spans midnight lasts until the next day, and nobody has asked for this one.
    if (window.Station().clock.SecondsSinceMidnight() >= kDaySeconds - kTickSeconds) return;
    ReadSerialClock(window, *model);
}

}  // namespace orlo
