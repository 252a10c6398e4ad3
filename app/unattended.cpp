#include "app/unattended.h"

#include "acquisition/acquisizione.h"
#include "app/standard_error_dialog.h"
#include "app/termination.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/modem_session.h"
#include "registry/start_up.h"
#include "registry/terminal_lines.h"
#include "status/sicronizzazione.h"

#include <unistd.h>

#include <cstdio>
#include <functional>
#include <vector>

namespace orlo
{

namespace
{

/// How one terminal's command ended, and why it is not done when it is not.
struct Result {
    bool done = false;
    QString reason;
};

/// A command of the window, done for one terminal after the other.
struct Task {
    /// What a terminal is not when it failed: "acquisito".
    QString participle;
    std::function<Result(Contenitore&)> command;
};

Result NotDone(const QString& reason)
{
    return {.done = false, .reason = reason};
}

Task Acquire()
{
    return {QStringLiteral("acquisito"), [](Contenitore& window) {
                const AcquisitionOutcome outcome = cmdAcquisisce_Click(window);
                return Result{outcome.done, outcome.reason};
            }};
}

Task SetClock()
{
    return {QStringLiteral("sincronizzato"), [](Contenitore& window) {
                const ClockOutcome outcome = cmdSincro_Click(window);
                return Result{outcome.done, outcome.reason};
            }};
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

Result DoByModem(const Task& task, Contenitore& window)
{
    LogIn_Click(window);
    if (!window.LineIsOpen()) {
        const QString caption = window.Controls().PannelloComunicazione->text();
        return NotDone(caption.isEmpty() ? kPortNotOpened : caption);
    }
    Result outcome = task.command(window);
    EndSession(window);
    return outcome;
}

Result DoTerminal(const Task& task, Contenitore& window, int terminal)
{
    if (Termination::Requested()) return NotDone(QStringLiteral("programma interrotto"));
    if (!SelectTerminal(window, terminal)) return NotDone(NotInRegister(window));
    if (!window.Controls().Abilitazione->isChecked())
        return NotDone(QStringLiteral("non è attivo"));
    ShowProgressOnTerminal(window, terminal);
    Result outcome = IsToBeDialled(window) ? DoByModem(task, window) : task.command(window);
    EndProgressOnTerminal(window);
    return outcome;
}

/// True when every terminal was done.
bool DoTask(const Task& task, Contenitore& window, const StartUpOutcome& start_up,
            const std::vector<int>& terminals)
{
    bool all_done = true;
    for (const int terminal : terminals) {
        const Result result = start_up.end == StartUpOutcome::End::Complete
                                  ? DoTerminal(task, window, terminal)
                                  : NotDone(start_up.reason);
        if (!result.done)
            WriteErrorLine(QStringLiteral("Terminale %1 non %2: %3")
                               .arg(terminal)
                               .arg(task.participle, result.reason));
        all_done = all_done && result.done;
    }
    return all_done;
}

}  // namespace

ExitStatus RunUnattended(Desk& desk, const CommandLine& command_line)
{
    Contenitore& window = desk.Window();
    const StartUpOutcome start_up =
        StartUp(window, command_line.configuration_file, desk.Component());
    if (!command_line.punch_file.isEmpty())
        window.Controls().NomeFile->setText(command_line.punch_file);

    const bool acquired = DoTask(Acquire(), window, start_up, command_line.acquire);
    const bool set = DoTask(SetClock(), window, start_up, command_line.set_clock);
    CloseRegister(desk.State());
    return acquired && set ? kAllDone : kNotAllDone;
}

}  // namespace orlo
