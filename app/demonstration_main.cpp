// orlodesk-dimostrazione PICTURES [OPTIONS OF orlodesk]
// Shows the program at work where there is no display; used by ./run --headless.

#include "app/bell_demonstration.h"
#include "app/command_line.h"
#include "app/demonstration.h"
#include "app/italian.h"
#include "app/standard_error_dialog.h"
#include "link/line_trace.h"
#include "registry/start_up.h"

#include <QApplication>

namespace
{

using namespace orlo;

int Demonstrate(QApplication& application, const CommandLine& command_line, const QDir& pictures)
{
    StandardErrorDialog dialog;
    NoTrace trace;
    ApplyTheme(application, Theme::Light);
    Desk desk(command_line, dialog, trace);
    const StartUpOutcome start_up =
        StartUp(desk.Window(), command_line.configuration_file, desk.Component());
    if (start_up.end != StartUpOutcome::End::Complete) {
        WriteErrorLine(start_up.reason);
        return 1;
    }
    desk.Window().resize(1280, 720);
    desk.Window().show();

    Demonstration demonstration(desk, pictures);
    // A Strale, before its punches are acquired.
    bool all_done = demonstration.ShowMonitorAndConsole(4, QStringLiteral("chiaro"));
    all_done = demonstration.AcquireAll() && all_done;
    // A Lumo whose clock is wrong.
    all_done = demonstration.ShowClockAndBadge(6) && all_done;
    const PictureTaker take_picture = [&pictures](QWidget& window, const QString& name) {
        window.grab().save(pictures.filePath(name + QStringLiteral(".png")));
    };
    constexpr int kOrlo = 1;
    constexpr int kOrloII = 3;
    all_done = ShowBells(desk, kOrlo, kOrloII, QStringLiteral("chiaro"), take_picture) && all_done;
    demonstration.TakePicture(QStringLiteral("Contenitore-chiaro"));
    demonstration.TakePictureOfEveryTerminal(QStringLiteral("chiaro"));
    ApplyTheme(application, Theme::Dark);
    // The new palette reaches the window through its events.
    QCoreApplication::processEvents();
    demonstration.TakePictureOfEveryTerminal(QStringLiteral("scuro"));
    all_done = ShowBells(desk, kOrlo, kOrloII, QStringLiteral("scuro"), take_picture) && all_done;
    CloseRegister(desk.State());
    return all_done ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    SpeakItalian(application);
    QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        WriteErrorLine(
            QStringLiteral("Uso: orlodesk-dimostrazione CARTELLA [opzioni di orlodesk]"));
        return 2;
    }
    const QDir pictures(arguments.takeAt(1));
    const ParsedCommandLine parsed =
        ParseCommandLine(arguments, QApplication::applicationDirPath());
    if (parsed.message) {
        WriteErrorLine(parsed.message->text);
        return 2;
    }
    return Demonstrate(application, parsed.command_line, pictures);
}
