#include "status/legge_data_ora.h"

#include "link/telegram.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"
#include "status/status_answer.h"
#include "status/terminal_question.h"

namespace orlo
{

namespace
{

constexpr double kDaySeconds = 86400;
/// A tick's wait and the steps of its clock.
constexpr double kTickSeconds = 3;

void ShowClock(Contenitore& window, const QString& date, const QString& time,
               const QString& pc_date, const QString& pc_time)
{
    const Ui::Contenitore& controls = window.Controls();
    controls.OraTerminale->setText(time);
    controls.DataTerminale->setText(date);
    controls.Sistema->setText(pc_date + QStringLiteral(" - ") + pc_time);
    window.NameClockTerminal(window.State().CurrentTerminalNumber);
}

void ReadSerialClock(Contenitore& window, const TerminalModel& model)
{
    PortSession session(window);
    if (session.Port() == nullptr) return;
    const std::string answer = AskTerminal(window, *session.Port(), "03");
    if (answer == kTimeout) return;
    const DateAndTime cut = CutDateAndTime(model.status_answer, answer);
    Clock& clock = window.Station().clock;
    ShowClock(window, AnswerText(cut.date), AnswerText(cut.time),
              clock.Date().toString(QStringLiteral("dd/MM/yyyy")),
              clock.Time().toString(QStringLiteral("HH:mm:ss")));
}

}  // namespace

void cmdLeggeOra_Click(Contenitore& window)
{
    window.Controls().PannelloComunicazione->clear();
    window.PrepareCurrentTerminal();
    LeggeDataOra(window);
}

void LeggeDataOra(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model != nullptr && model->family == LinkFamily::Serial) ReadSerialClock(window, *model);
}

void Timer1_Timer(Contenitore& window)
{
    const TerminalModel* const model = window.State().CurrentModel;
    if (model == nullptr || model->family != LinkFamily::Serial) return;
    // A wait that spans midnight lasts until the next day, and nobody has asked for this one.
    if (window.Station().clock.SecondsSinceMidnight() >= kDaySeconds - kTickSeconds) return;
    ReadSerialClock(window, *model);
}

}  // namespace orlo
