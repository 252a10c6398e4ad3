#include "acquisition/acquisizione.h"

#include "acquisition/acquisition_messages.h"
#include "acquisition/gestione_acquisizione.h"
#include "acquisition/tipo_output.h"
#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/database_error.h"

#include <QFileInfo>

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

/// The empty text when the file is open.
QString OpenPunchFile(Contenitore& window, PunchFile& file)
{
    const QString name = window.Controls().NomeFile->text();
    if (file.Open(name)) return {};
    QString reason =
        QStringLiteral("Impossibile aprire il file \"%1\": %2.").arg(name, file.Error());
    TellCritical(window, reason);
    return reason;
}

AcquisitionOutcome AcquireSerial(Contenitore& window)
{
    const MemoryAnswer status = StatoMemoria(window, /*may_open_port=*/true);
    // A status that timed out leaves the counters of the one before, and these drive the loop.
    const std::int16_t count = PunchesToAcquire(window.State());

    PunchFile file;
    const QString failure = OpenPunchFile(window, file);
    if (!failure.isEmpty()) return NotDone(failure);
    return GestioneAcquisizione(window, file, count, status);
}

AcquisitionOutcome AcquireObject(Contenitore& window)
{
    const std::optional<RecordCounters> counters = ReadRecordCounters(window);
    if (!counters) return NotDone(window.Controls().PannelloComunicazione->text());
    if (RecordsToAcquire(*counters) < 1) {
        window.ShowWorkDone();
        window.Station().dialog.Tell(DialogIcon::Information, QStringLiteral("Orlo Desk"),
                                     QStringLiteral("Nessuna Timbratura Da Acquisire"));
        return {.done = true, .reason = {}};
    }
    // The terminal is asked a second time: this one is shown.
    const MemoryAnswer status = StatoMemoria(window, /*may_open_port=*/true);

    PunchFile file;
    const QString failure = OpenPunchFile(window, file);
    if (!failure.isEmpty()) return NotDone(failure);
    return GestioneAcquisizione(window, file, *counters, status);
}

AcquisitionOutcome AcquireObjectGuarded(Contenitore& window)
{
    AcquisitionOutcome outcome;
    const QString thrown = GuardComponentCalls(window, [&] { outcome = AcquireObject(window); });
    return thrown.isEmpty() ? outcome : NotDone(thrown);
}

/// The outcome of an acquisition that is done, with what it brought and where it is.
QString GoodOutcome(int punches, const QString& file)
{
    const QString good = kCommunicationOk + QStringLiteral(", ");
    if (punches == 0) return good + QStringLiteral("nessuna timbratura da acquisire");
    const QString brought = punches == 1 ? QStringLiteral("1 timbratura")
                                         : QStringLiteral("%1 timbrature").arg(punches);
    return good + brought + QStringLiteral(" in ") + QFileInfo(file).fileName();
}

}  // namespace

AcquisitionOutcome cmdAcquisisce_Click(Contenitore& window)
{
    const Ui::Contenitore& controls = window.Controls();
    if (controls.NomeFile->text().isEmpty()) {
        const QString text = QStringLiteral("Specificare il nome del File.");
        TellCritical(window, text);
        window.NoteOutcome(QStringLiteral("Errore: manca il nome del file"));
        return NotDone(text);
    }
    controls.PannelloComunicazione->clear();
    controls.PanelTentativi->clear();
    if (!ReadOutputLayout(window)) {
        const QString text = QStringLiteral("il tracciato non si può leggere dal database");
        window.NoteOutcome(QStringLiteral("Errore: ") + text);
        return NotDone(text);
    }
    window.AzzeraLabel();
    AcquisitionOutcome outcome = window.PrepareCurrentTerminal()
                                     ? Acquisizione(window)
                                     : NotDone(controls.PannelloComunicazione->text());
    // Also behind an acquisition that failed: the line costs money.
    if (!window.HangUpBehindCommand() && outcome.done)
        outcome = NotDone(controls.PannelloComunicazione->text());
    // An Orlo or Sipa leaves no caption behind, and the last caption of an acquisition that was
    // stopped is that of its last good exchange.
    window.NoteOutcome(outcome.done ? GoodOutcome(outcome.punches, controls.NomeFile->text())
                                    : outcome.reason);
    return outcome;
}

AcquisitionOutcome Acquisizione(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) {
        window.Controls().PannelloComunicazione->setText(kUnknownTypeError);
        return NotDone(kUnknownTypeError);
    }
    return model->family == LinkFamily::Serial ? AcquireSerial(window)
                                               : AcquireObjectGuarded(window);
}

}  // namespace orlo
