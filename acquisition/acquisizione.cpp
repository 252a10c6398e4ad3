#include "acquisition/acquisizione.h"

#include "acquisition/gestione_acquisizione.h"
#include "acquisition/tipo_output.h"
#include "registry/contenitore_controls.h"
#include "registry/database_error.h"

namespace orlo
{

namespace
{

AcquisitionOutcome NotDone(const QString& reason)
{
    return {.done = false, .reason = reason};
}

bool ReadOutputLayout(Contenitore& window)
{
    try {
        window.State().TipoTracciato = TipoOutput(window.State());
        return true;
    } catch (const jet::Error& error) {
        ShowDatabaseError(window.Station().dialog, error);
        return false;
    }
}

AcquisitionOutcome AcquireSerial(Contenitore& window)
{
    const MemoryAnswer status = StatoMemoria(window, /*may_open_port=*/true);
    // A status that timed out leaves the counters of the one before, and these drive the loop.
    const std::int16_t count = PunchesToAcquire(window.State());

    PunchFile file;
    const QString name = window.Controls().NomeFile->text();
    if (!file.Open(name)) {
        const QString reason =
            QStringLiteral("Impossibile aprire il file \"%1\": %2.").arg(name, file.Error());
        window.Station().dialog.Tell(DialogIcon::Critical, QStringLiteral("Attenzione"), reason);
        return NotDone(reason);
    }
    return GestioneAcquisizione(window, file, count, status);
}

}  // namespace

AcquisitionOutcome cmdAcquisisce_Click(Contenitore& window)
{
    const Ui::Contenitore& controls = window.Controls();
    if (controls.NomeFile->text().isEmpty()) {
        const QString text = QStringLiteral("Specificare il nome del File.");
        window.Station().dialog.Tell(DialogIcon::Critical, QStringLiteral("Attenzione"), text);
        return NotDone(text);
    }
    controls.PannelloComunicazione->clear();
    controls.PanelTentativi->clear();
    if (!ReadOutputLayout(window))
        return NotDone(QStringLiteral("il tracciato non si può leggere dal database"));
    window.AzzeraLabel();
    window.PrepareCurrentTerminal();
    return Acquisizione(window);
}

AcquisitionOutcome Acquisizione(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model != nullptr && model->family == LinkFamily::Serial) return AcquireSerial(window);
    const QString text =
        model == nullptr
            ? QStringLiteral("Errore: il tipo di terminale non è conosciuto.")
            : QStringLiteral("Errore: il componente per %1 non è disponibile.").arg(model->name);
    window.Controls().PannelloComunicazione->setText(text);
    return NotDone(text);
}

}  // namespace orlo
