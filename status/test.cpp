#include "status/test.h"

#include "acquisition/stato_memoria.h"
#include "link/modem_dial.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"
#include "registry/wait_terminal_delay.h"
#include "status/release_text.h"
#include "status/status_answer.h"
#include "status/terminal_question.h"

#include <utility>

namespace orlo
{

namespace
{

bool TestSerial(Contenitore& window, const TerminalModel& model)
{
    PortSession session(window);
    if (session.Port() == nullptr) {
        window.NoteOutcome(session.Refusal());
        return false;
    }
    const std::string answer = AskTerminal(window, *session.Port(), "03");
    if (answer == kTimeout) {
        session.LeaveOpen();
        if (window.Controls().CheckModem->isChecked())
            ModemHangUp(window.Station(), *session.Port());
        return false;
    }
    const StateAndVersion cut = CutStateAndVersion(model.status_answer, answer);
    window.Controls().PannelloStato->setText(AnswerText(cut.state));
    window.Controls().PannelloVersione->setText(AnswerText(cut.version));
    return true;
}

bool TestObject(Contenitore& window)
{
    ProgramState& state = window.State();
    if (state.Component == nullptr) return false;
    component::FPrVersion& version = *state.Component->FPrVersionObject;
    WaitTerminalDelay(state, window.Station());
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] = std::pair(state.CurrentTerminalNumber, state.CurrentPriority);
    if (!version.Receive(terminal, priority)) {
        window.Controls().PannelloStato->setText(QStringLiteral("Errore:") +
                                                 ComponentText(version.ReceivedCommand()));
        window.NoteOutcome(window.Controls().PannelloStato->text());
        return false;
    }
    window.Controls().PannelloComunicazione->setText(kCommunicationOk);
    window.Controls().PannelloVersione->setText(
        ComponentText(ReleaseText([&version] { return version.LastBuild(); })));
    return true;
}

void TestAndShowMemory(Contenitore& window)
{
    // The memory of a terminal that does not answer is not asked for: the outcome of the test
    // stands, and the panels keep what they showed.
    if (!Test(window)) return;
    TextPanel& outcome = *window.Controls().PannelloComunicazione;
    const QString tested = outcome.text();
    StatoMemoria(window, /*may_open_port=*/true);
    // It empties the caption and does not always write one.
    if (outcome.text().isEmpty()) outcome.setText(tested);
}

}  // namespace

bool Test(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) {
        window.NoteOutcome(kUnknownType);
        return false;
    }
    return model->family == LinkFamily::Serial ? TestSerial(window, *model) : TestObject(window);
}

void cmdTest_Click(Contenitore& window)
{
    window.Controls().PannelloComunicazione->clear();
    if (window.PrepareCurrentTerminal())
        GuardComponentCalls(window, [&window] { TestAndShowMemory(window); });
    window.HangUpBehindCommand();
}

}  // namespace orlo
