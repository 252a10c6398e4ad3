#include "app/demonstration.h"

#include "registry/contenitore_controls.h"

#include <QPixmap>

#include <cstdio>

namespace orlo
{

namespace
{

void Say(const QString& text)
{
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

}  // namespace

Demonstration::Demonstration(Desk& desk, const QDir& pictures)
    : window_(desk.Window()), pictures_(pictures)
{
    QObject::connect(window_.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window_,
                     [this](int percent) {
                         if (percent > 20 && percent < 60) TakePictureInTheMiddle();
                     });
}

bool Demonstration::AcquireAll()
{
    bool all_done = true;
    for (int line = 0; line < window_.Controls().ListaTerminali->count(); ++line) {
        window_.SelectTerminalLine(line);
        const TerminalModel* const model = window_.ShownModel();
        if (model != nullptr && model->family == LinkFamily::Serial)
            all_done = AcquireSelected() && all_done;
    }
    return all_done;
}

bool Demonstration::AcquireSelected()
{
    const Ui::Contenitore& controls = window_.Controls();
    controls.cmdAcquisisce->click();
    const bool done =
        controls.PannelloComunicazione->text() == QStringLiteral("Comunicazione OK") &&
        controls.PannelloAcquisire->text() == QStringLiteral("0");
    Say(QStringLiteral("%1 (%2): %3, %4 timbrature in memoria, %5 da acquisire")
            .arg(controls.LabelTerminale->text(), controls.ComboTipoTerminale->currentText(),
                 controls.PannelloComunicazione->text(), controls.PannelloTimbrature->text(),
                 controls.PannelloAcquisire->text()));
    return done;
}

void Demonstration::TakePicture(const QString& name)
{
    window_.grab().save(pictures_.filePath(name + QStringLiteral(".png")));
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
