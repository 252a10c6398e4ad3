#include "acquisition/monitor_reading.h"

#include "acquisition/acquisition_messages.h"
#include "acquisition/frm_monitor.h"
#include "link/pressione_tasto_esc.h"

#include "ui_frm_monitor.h"

#include <algorithm>

namespace orlo
{

namespace
{

/// What is sent to a terminal behind a modem then, the modem takes for commands of its own.
bool WithoutItsCall(Contenitore& desk)
{
    return desk.State().CurrentModem && !desk.LineIsOpen();
}

}  // namespace

bool MonitorReading::OpenFile()
{
    if (!form_.Controls().CheckMemo->isChecked() || file_.Open()) return true;
    TellFileFailure(QStringLiteral("non scritto"),
                    QStringLiteral("Impossibile scrivere il file \"%1\": %2."));
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
    const QString wrong = WhatIsWrong();
    // Who stopped it knows that it was stopped, but not what is wrong with the lines he sees.
    if (!stopped_ || !wrong.isEmpty())
        form_.Desk().Station().dialog.Tell(DialogIcon::Information, QStringLiteral("Comunicazione"),
                                           HowItEnded(), wrong);
    form_.Controls().PercentualeMonitor->setValue(0);
}

QString MonitorReading::HowItEnded() const
{
    if (stopped_) return QStringLiteral("Lettura interrotta");
    return Failed() ? failure_ : QStringLiteral("Ricezione dati OK");
}

void MonitorReading::CloseFile()
{
    if (file_.IsOpen() && !file_.Close())
        TellFileFailure(QStringLiteral("non completo"),
                        QStringLiteral("Il file \"%1\" non è completo: %2."));
}

// The outcome stands there before the box: behind it the caption would say that all is well.
void MonitorReading::TellFileFailure(const QString& state, const QString& text)
{
    file_state_ = state;
    TellOutcome();
    TellCritical(form_.Desk(), text.arg(MonitorFile::Path(), file_.Error()));
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
    if (!file_state_.isEmpty())
        return QStringLiteral("Errore: \"%1\" %2").arg(MonitorFile::Name(), file_state_);
    if (stopped_ || Failed()) return HowItEnded();
    if (status_missing_)
        return QStringLiteral("Errore: stato della memoria non arrivato") +
               (WithoutItsCall(form_.Desk()) ? QStringLiteral(": fare Log-in") : QString());
    if (missing_blocks_ > 0)
        return QStringLiteral("Errore: blocchi non arrivati: %1").arg(missing_blocks_);
    if (BeyondDeclared() != 0) return QStringLiteral("Errore: la lista può non essere completa");
    return {};
}

/// How many punches the list has more than the terminal declared, below zero how many fewer; 0 too
/// where something else says why, or makes the declared number itself doubtful.
int MonitorReading::BeyondDeclared() const
{
    if (!declared_ || status_missing_ || missing_blocks_ > 0) return 0;
    const int beyond = NextNumber() - 1 - *declared_;
    return stopped_ || Failed() ? std::max(beyond, 0) : beyond;
}

/// Empty when nothing is.
QString MonitorReading::WhatIsWrong() const
{
    const QString doubt =
        QStringLiteral("la lista può non essere completa e gli stati non valgono.");
    QStringList wrong;
    if (status_missing_)
        wrong << QStringLiteral("Lo stato della memoria non è arrivato: ") + doubt;
    else if (BeyondDeclared() > 0)
        wrong << QStringLiteral(
                     "Il terminale contiene più timbrature di quante ne ha dichiarate: ") +
                     doubt;
    else if (BeyondDeclared() < 0)
        wrong << QStringLiteral(
            "Sono arrivate meno timbrature di quante il terminale ne ha dichiarate: la lista può "
            "non essere completa.");
    if (missing_blocks_ == 1)
        wrong << QStringLiteral(
            "Di un blocco di timbrature non è arrivata la risposta: la lista non è completa, e "
            "numeri e stati dopo di esso non valgono.");
    else if (missing_blocks_ > 1)
        wrong << QStringLiteral(
                     "Di %1 blocchi di timbrature non è arrivata la risposta: la lista non è "
                     "completa, e numeri e stati dopo di essi non valgono.")
                     .arg(missing_blocks_);
    if (wrong.isEmpty()) return {};
    wrong.front()[0] = wrong.front()[0].toLower();
    return QStringLiteral("Attenzione: ") + wrong.join(u' ');
}

}  // namespace orlo
