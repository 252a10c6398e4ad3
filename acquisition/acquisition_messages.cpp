#include "acquisition/acquisition_messages.h"

#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"

namespace orlo
{

void TellCritical(Contenitore& window, const QString& text, const QString& informative)
{
    window.ShowWorkDone();
    window.Station().dialog.Tell(DialogIcon::Critical, QStringLiteral("Attenzione"), text,
                                 informative);
}

QString TellNotStored(Contenitore& window, const QString& error, const QString& advice)
{
    const Ui::Contenitore& controls = window.Controls();
    QString text = QStringLiteral("Impossibile scrivere le timbrature nel file \"%1\": %2.")
                       .arg(controls.NomeFile->text(), error);
    controls.PannelloComunicazione->setText(QStringLiteral("Errore: timbrature non scritte"));
    TellCritical(window, text, advice);
    return text;
}

}  // namespace orlo
