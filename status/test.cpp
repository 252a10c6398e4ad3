#include "status/test.h"

#include "acquisition/stato_memoria.h"
#include "link/telegram.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"
#include "status/status_answer.h"
#include "status/terminal_question.h"

namespace orlo
{

namespace
{

bool TestSerial(Contenitore& window, const TerminalModel& model)
{
    PortSession session(window);
    if (session.Port() == nullptr) return false;
    const std::string answer = AskTerminal(window, *session.Port(), "03");
    if (answer == kTimeout) {
        session.LeaveOpen();
        return false;
    }
    const StateAndVersion cut = CutStateAndVersion(model.status_answer, answer);
    window.Controls().PannelloStato->setText(AnswerText(cut.state));
    window.Controls().PannelloVersione->setText(AnswerText(cut.version));
    return true;
}

}  // namespace

bool Test(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr || model->family != LinkFamily::Serial) return false;
    return TestSerial(window, *model);
}

void cmdTest_Click(Contenitore& window)
{
    TextPanel& outcome = *window.Controls().PannelloComunicazione;
    outcome.clear();
    window.PrepareCurrentTerminal();
    // The memory of a terminal that does not answer is not asked for: the outcome of the test
    // stands, and the panels keep what they showed.
    if (!Test(window)) return;
    const QString tested = outcome.text();
    StatoMemoria(window, /*may_open_port=*/true);
    // It empties the caption and does not always write one.
    if (outcome.text().isEmpty()) outcome.setText(tested);
}

}  // namespace orlo
