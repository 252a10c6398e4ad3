#include "app/unattended.h"

#include "acquisition/acquisizione.h"
#include "app/standard_error_dialog.h"
#include "app/termination.h"
#include "registry/contenitore_controls.h"
#include "registry/modem_session.h"
#include "registry/start_up.h"
#include "registry/terminal_lines.h"

#include <unistd.h>

#include <cstdio>

namespace orlo
{

namespace
{

AcquisitionOutcome NotDone(const QString& reason)
{
    return {.done = false, .reason = reason};
}

/// With the reason, when the register was not read to its end.
QString NotInRegister(const Contenitore& window)
{
    const QString remark = window.Controls().PannelloComunicazione->Remark();
    const QString text = QStringLiteral("non è nel registro");
    return remark.isEmpty() ? text : text + QStringLiteral(". ") + remark;
}

/// Progress is for a person who looks on, not for a log.
void ShowProgressOnTerminal(Contenitore& window, int terminal)
{
    if (isatty(STDERR_FILENO) == 0) return;
    QObject::connect(window.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window,
                     [terminal](int value) {
                         std::fprintf(stderr, "\rTerminale %d: restano %3d%% ", terminal, value);
                     });
}

void EndProgressOnTerminal(Contenitore& window)
{
    if (isatty(STDERR_FILENO) == 0) return;
    window.Controls().PannelloPercentuale->disconnect(&window);
    std::fprintf(stderr, "\r\033[K");
}

/// Orlo and Sipa terminals are dialled by their component.
bool IsToBeDialled(const Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    return model != nullptr && model->family == LinkFamily::Serial &&
           window.Controls().CheckModem->isChecked();
}

AcquisitionOutcome AcquireByModem(Contenitore& window)
{
    LogIn_Click(window);
    if (!window.LineIsOpen()) {
        const QString caption = window.Controls().PannelloComunicazione->text();
        return NotDone(caption.isEmpty() ? QStringLiteral("Errore aprendo la COM") : caption);
    }
    AcquisitionOutcome outcome = cmdAcquisisce_Click(window);
    EndSession(window);
    return outcome;
}

AcquisitionOutcome AcquireTerminal(Contenitore& window, int terminal)
{
    if (Termination::Requested()) return NotDone(QStringLiteral("programma interrotto"));
    if (!SelectTerminal(window, terminal)) return NotDone(NotInRegister(window));
    if (!window.Controls().Abilitazione->isChecked())
        return NotDone(QStringLiteral("non è attivo"));
    ShowProgressOnTerminal(window, terminal);
    AcquisitionOutcome outcome =
        IsToBeDialled(window) ? AcquireByModem(window) : cmdAcquisisce_Click(window);
    EndProgressOnTerminal(window);
    return outcome;
}

void ReportTerminal(int terminal, const AcquisitionOutcome& outcome)
{
    if (!outcome.done)
        WriteErrorLine(
            QStringLiteral("Terminale %1 non acquisito: %2").arg(terminal).arg(outcome.reason));
}

}  // namespace

ExitStatus RunUnattended(Desk& desk, const CommandLine& command_line)
{
    Contenitore& window = desk.Window();
    const StartUpOutcome start_up =
        StartUp(window, command_line.configuration_file, desk.Component());
    if (!command_line.punch_file.isEmpty())
        window.Controls().NomeFile->setText(command_line.punch_file);

    bool all_done = true;
    for (const int terminal : command_line.acquire) {
        const AcquisitionOutcome outcome = start_up.end == StartUpOutcome::End::Complete
                                               ? AcquireTerminal(window, terminal)
                                               : NotDone(start_up.reason);
        ReportTerminal(terminal, outcome);
        all_done = all_done && outcome.done;
    }
    CloseRegister(desk.State());
    return all_done ? kAllDone : kNotAllDone;
}

}  // namespace orlo
