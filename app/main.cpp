#include "app/command_line.h"
#include "app/desk.h"
#include "app/exit_guard.h"
#include "app/italian.h"
#include "app/message_boxes.h"
#include "app/standard_error_dialog.h"
#include "app/termination.h"
#include "app/unattended.h"
#include "link/file_trace.h"
#include "registry/start_up.h"

#include <QApplication>
#include <QLoggingCategory>

#include <csignal>
#include <cstdio>

namespace
{

using namespace orlo;

int RunWindow(const CommandLine& command_line, LineTrace& trace, Termination& termination)
{
    MessageBoxes dialog(termination);
    Desk desk(command_line, dialog, trace);
    Contenitore& window = desk.Window();
    dialog.SetParentWindow(&window);
    const ExitGuard guard([&desk] { CloseRegister(desk.State()); });
    const StartUpOutcome start_up =
        StartUp(window, command_line.configuration_file, desk.Component());
    if (start_up.end == StartUpOutcome::End::InUse || Termination::Requested()) return kNotAllDone;

    QObject::connect(&termination, &Termination::Asked, &window, [&window] { window.close(); });
    QObject::connect(&window, &Contenitore::LeaveRequested, qApp, [&desk] {
        // The register first: whoever ends the session may not wait for a modem.
        CloseRegister(desk.State());
        desk.HangUp();
        QCoreApplication::quit();
    });
    window.show();
    const int status = QApplication::exec();
    CloseRegister(desk.State());
    return status;
}

int RunWithoutWindow(const CommandLine& command_line, LineTrace& trace)
{
    StandardErrorDialog dialog;
    Desk desk(command_line, dialog, trace);
    return RunUnattended(desk, command_line);
}

int Show(const CommandLineMessage& message)
{
    if (!message.is_error) {
        std::fputs(message.text.toUtf8().constData(), stdout);
        return kAllDone;
    }
    WriteErrorLine(message.text);
    return kWrongUsage;
}

/// A run without a window needs neither display nor session, and Qt's remarks about a missing
/// session (there is none under cron) are not for the operator.
void DoWithoutSession()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
}

/// Before there is a window: usage errors and the help need no display.
ParsedCommandLine ReadCommandLine(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    SpeakItalian(application);
    return ParseCommandLine(QCoreApplication::arguments(), QCoreApplication::applicationDirPath());
}

int Run(QApplication& application, const CommandLine& command_line)
{
    QApplication::setQuitOnLastWindowClosed(false);
    // The name that a box without a title bears. No display name: it would be added to every title.
    QApplication::setApplicationName(QStringLiteral("Orlo Desk"));
    SpeakItalian(application);
    ApplyTheme(application, command_line.theme);

    FileTrace file_trace;
    NoTrace no_trace;
    const bool traced = !command_line.trace_file.isEmpty();
    QString error;
    if (traced && !file_trace.Open(command_line.trace_file, error))
        return Show({QStringLiteral("--traccia %1: %2").arg(command_line.trace_file, error), true});
    LineTrace& trace = traced ? static_cast<LineTrace&>(file_trace) : no_trace;

    Termination termination;
    return command_line.Unattended() ? RunWithoutWindow(command_line, trace)
                                     : RunWindow(command_line, trace, termination);
}

}  // namespace

int main(int argc, char** argv)
{
    // A punch file that grows over a limit must end in an error message, not in the end of the
    // program.
    std::signal(SIGXFSZ, SIG_IGN);
    // So must a standard error that nobody reads any more.
    std::signal(SIGPIPE, SIG_IGN);
    const ParsedCommandLine parsed = ReadCommandLine(argc, argv);
    if (parsed.message) return Show(*parsed.message);
    if (parsed.command_line.Unattended()) DoWithoutSession();
    QApplication application(argc, argv);
    return Run(application, parsed.command_line);
}
