#include "app/demonstration.h"

#include "app/demonstrated_window.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/terminal_lines.h"

#include <QPixmap>

#include <cstdio>
#include <utility>

namespace orlo
{

Demonstration::Demonstration(Desk& desk, const QDir& pictures)
    : window_(desk.Window()), pictures_(pictures)
{
    QObject::connect(window_.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window_,
                     [this](int percent) {
                         // An Orlo or a Sipa has no caption to be seen meanwhile.
                         const TerminalModel* const model = window_.ShownModel();
                         const bool serial =
                             model != nullptr && model->family == LinkFamily::Serial;
                         if (serial && percent > 20 && percent < 60) TakePictureInTheMiddle();
                     });
}

bool Demonstration::AcquireAll()
{
    bool all_done = true;
    for (int line = 0; line < window_.Controls().ListaTerminali->count(); ++line) {
        window_.SelectTerminalLine(line);
        const TerminalModel* const model = window_.ShownModel();
        const bool dialled = window_.Controls().CheckModem->isChecked() && model != nullptr &&
                             model->family == LinkFamily::Serial;
        if (dialled) all_done = Dial() && all_done;
        all_done = AcquireSelected() && all_done;
        if (dialled) all_done = HangUp() && all_done;
    }
    return all_done;
}

bool Demonstration::Dial()
{
    window_.Controls().cmdLogIn->click();
    Say(window_.Controls().PannelloComunicazione->text());
    TakePicture(QStringLiteral("Contenitore-modem"));
    return window_.LineIsOpen();
}

bool Demonstration::HangUp()
{
    window_.Controls().cmdLogOff->click();
    Say(window_.Controls().PannelloComunicazione->text());
    return !window_.LineIsOpen();
}

bool Demonstration::AcquireSelected()
{
    const Ui::Contenitore& controls = window_.Controls();
    controls.cmdAcquisisce->click();
    const QString failure = controls.PannelloComunicazione->text();
    const bool done = (failure.isEmpty() || failure == kCommunicationOk) &&
                      controls.PannelloAcquisire->text() == QStringLiteral("0");
    Say(QStringLiteral("%1, %2 timbrature in memoria, %3 da acquisire")
            .arg(done ? QStringLiteral("acquisito") : failure, controls.PannelloTimbrature->text(),
                 controls.PannelloAcquisire->text()));
    return done;
}

bool Demonstration::ShowClockAndBadge(int terminal)
{
    const Ui::Contenitore& controls = window_.Controls();
    if (!SelectTerminal(window_, terminal)) return false;
    bool done = Press(controls.cmdTest);
    Say(QStringLiteral("test, stato \"%1\", versione \"%2\"")
            .arg(controls.PannelloStato->text().trimmed(),
                 controls.PannelloVersione->text().trimmed()));
    done = Press(controls.cmdLeggeOra) && done;
    Say(QStringLiteral("orologio, differenza %1").arg(controls.LabelScarto->text()));
    TakePicture(QStringLiteral("Contenitore-orologio"));
    done = Press(controls.cmdSincro) && done;
    done = Press(controls.cmdLeggeOra) && done;
    Say(QStringLiteral("sincronizzato, differenza %1").arg(controls.LabelScarto->text()));
    done = Press(controls.cmdRiceveCard) && done;
    Say(QStringLiteral("formato badge, codice impianto %1").arg(controls.NomeCard->text()));
    TakePicture(QStringLiteral("Contenitore-badge"));
    return Press(controls.cmdTrasmetteCard) && done;
}

/// False when the command ended with another outcome than good answers only.
bool Demonstration::Press(QPushButton* button)
{
    button->click();
    const QString outcome = window_.Controls().LabelUltimoComando->text();
    return outcome.endsWith(kCommunicationOk) ||
           outcome.endsWith(QStringLiteral("risposte 5 su 5")) ||
           outcome.endsWith(QStringLiteral("risposte 6 su 6"));
}

bool Demonstration::ShowMonitorAndConsole(int terminal, const QString& suffix)
{
    if (!SelectTerminal(window_, terminal)) return false;
    const bool read = ReadMonitor(suffix);
    return SendCommand(suffix) && read;
}

bool Demonstration::ReadMonitor(const QString& suffix)
{
    const DemonstratedWindow monitor(window_, window_.Controls().cmdMonitorTimbrature,
                                     "FrmMonitor");
    monitor.Find<QCheckBox>("CheckMemo").setChecked(true);
    monitor.Press("cmdMonitor");
    const int listed = monitor.Find<QListWidget>("ListaMonitor").count();
    Say(QStringLiteral("monitor, %1 timbrature in lista e in MONITOR.TXT").arg(listed));
    TakePicture(monitor.Window(), QStringLiteral("FrmMonitor-") + suffix);
    return listed > 0 && monitor.Text("EsitoMonitor") == kCommunicationOk;
}

bool Demonstration::SendCommand(const QString& suffix)
{
    const DemonstratedWindow console(window_, window_.Controls().cmdComandi, "FrmComandi");
    console.Find<QLineEdit>("CommandField").setText(QStringLiteral("950006"));
    console.Press("cmdTrasmetteComando");
    Say(QStringLiteral("console, risposta \"%1\"").arg(console.Text("ReceivedDataLabel")));
    TakePicture(console.Window(), QStringLiteral("FrmComandi-") + suffix);
    return console.Text("EsitoComando") == kCommunicationOk;
}

void Demonstration::Say(const QString& deed) const
{
    const QString text = QStringLiteral("%1 (%2): %3\n")
                             .arg(window_.Controls().LabelTerminale->text(),
                                  window_.Controls().ComboTipoTerminale->currentText(), deed);
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

void Demonstration::TakePicture(const QString& name)
{
    TakePicture(window_, name);
}

void Demonstration::TakePicture(QWidget& window, const QString& name)
{
    window.grab().save(pictures_.filePath(name + QStringLiteral(".png")));
}

void Demonstration::TakePictureOfEveryTerminal(const QString& suffix)
{
    for (int line = 0; line < window_.Controls().ListaTerminali->count(); ++line) {
        window_.SelectTerminalLine(line);
        TakePicture(
            QStringLiteral("Contenitore-%1-%2")
                .arg(window_.Controls().ComboTipoTerminale->currentText().remove(u' '), suffix));
    }
}

void Demonstration::TakePictureInTheMiddle()
{
    if (!std::exchange(middle_taken_, true))
        TakePicture(QStringLiteral("Contenitore-acquisizione"));
}

}  // namespace orlo
