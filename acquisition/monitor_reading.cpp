#include "acquisition/monitor_reading.h"

#include "acquisition/acquisition_messages.h"
#include "acquisition/frm_monitor.h"
#include "link/pressione_tasto_esc.h"

#include "ui_frm_monitor.h"

#include <algorithm>

namespace orlo
{

bool MonitorReading::OpenFile()
{
    if (!form_.Controls().CheckMemo->isChecked() || file_.Open()) return true;
    TellFileFailure(QStringLiteral("Impossibile scrivere il file \"%1\": %2."));
    return false;
}

bool MonitorReading::Stopped()
{
    stopped_ = stopped_ || PressioneTastoEsc(form_.Desk().Station());
    return stopped_;
}

int MonitorReading::NextNumber() const
{
    return form_.Controls().ListaMonitor->count() + 1;
}

void MonitorReading::Add(const std::vector<MonitorPunch>& punches)
{
    PunchList& list = *form_.Controls().ListaMonitor;
    const int before = list.count();
    list.Add(punches);
    for (int row = before; row < list.count(); ++row) file_.Write(list.item(row)->text());
    form_.ShowFiltered();
}

void MonitorReading::ShowProgress(double part, double whole)
{
    form_.Controls().PercentualeMonitor->setValue(
        std::clamp(static_cast<int>(100 * part / whole), 0, 100));
}

void MonitorReading::Finish()
{
    CloseFile();
    TellOutcome();
    if (!stopped_)
        form_.Desk().Station().dialog.Tell(
            DialogIcon::Information, QStringLiteral("Comunicazione"),
            Failed() ? failure_ : QStringLiteral("Ricezione dati OK"), WhatIsWrong());
    form_.Controls().PercentualeMonitor->setValue(0);
}

void MonitorReading::CloseFile()
{
    if (file_.IsOpen() && !file_.Close())
        TellFileFailure(QStringLiteral("Il file \"%1\" non è completo: %2."));
}

// The outcome stands there before the box: behind it the caption would say that all is well.
void MonitorReading::TellFileFailure(const QString& text)
{
    file_failed_ = true;
    TellOutcome();
    TellCritical(form_.Desk(), text.arg(MonitorFile::Name(), file_.Error()));
}

void MonitorReading::TellOutcome()
{
    form_.ShowReadingDone();
    const QString outcome = Outcome();
    if (outcome.isEmpty()) return;
    form_.Controls().EsitoMonitor->setText(outcome);
    form_.Desk().NoteOutcome(outcome);
}

/// Empty when the caption says it all.
QString MonitorReading::Outcome() const
{
    if (file_failed_) return QStringLiteral("Errore: \"%1\" non scritto").arg(MonitorFile::Name());
    if (stopped_) return QStringLiteral("Lettura interrotta");
    if (Failed()) return failure_;
    if (status_missing_) return QStringLiteral("Errore: stato della memoria non arrivato");
    if (missing_blocks_ > 0)
        return QStringLiteral("Errore: blocchi non arrivati: %1").arg(missing_blocks_);
    if (more_than_declared_) return QStringLiteral("Errore: la lista può non essere completa");
    return {};
}

/// Empty when nothing is.
QString MonitorReading::WhatIsWrong() const
{
    const QString doubt =
        QStringLiteral("la lista può non essere completa e gli stati non valgono.");
    QStringList wrong;
    if (status_missing_)
        wrong << QStringLiteral("Lo stato della memoria non è arrivato: ") + doubt;
    else if (more_than_declared_)
        wrong << QStringLiteral(
                     "Il terminale contiene più timbrature di quante ne ha dichiarate: ") +
                     doubt;
    if (missing_blocks_ == 1)
        wrong << QStringLiteral(
            "Di un blocco di timbrature non è arrivata la risposta: la lista non è completa, e "
            "numeri e stati dopo di esso non valgono.");
    else if (missing_blocks_ > 1)
        wrong << QStringLiteral(
                     "Di %1 blocchi di timbrature non è arrivata la risposta: la lista non è "
                     "completa, e numeri e stati dopo di essi non valgono.")
                     .arg(missing_blocks_);
    return wrong.join(u' ');
}

}  // namespace orlo
