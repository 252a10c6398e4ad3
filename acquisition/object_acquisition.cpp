#include "acquisition/acquisition_messages.h"
#include "acquisition/gestione_acquisizione.h"
#include "acquisition/object_record.h"
#include "acquisition/record_acceptance.h"
#include "link/display_errore_comunicazione.h"
#include "link/pressione_tasto_esc.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"
#include "registry/wait_terminal_delay.h"
#include "registry/windows_1252.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr std::string_view kTimedOut = "99,Time Out";

/// Punches that may be made while an acquisition of a full memory runs.
constexpr int kMostRecordsMeanwhile = 100;

void AddTo(TextPanel& panel, int change)
{
    panel.setText(QString::number(NumericValue(panel.text()) + change, 'f', 0));
}

/// One run of the loop: record after record until the terminal has no more.
class ObjectAcquisition
{
public:
    ObjectAcquisition(Contenitore& window, PunchFile& file, const RecordCounters& counters,
                      MemoryAnswer status)
        : window_(window),
          controls_(window.Controls()),
          object_(*window.State().Component->RecordDataObject),
          acceptance_(file, object_),
          counters_(counters),
          status_(status)
    {
    }

    ~ObjectAcquisition()
    {
        if (punches_ > 0) controls_.PannelloPercentuale->setValue(0);
    }
    ObjectAcquisition(const ObjectAcquisition&) = delete;
    ObjectAcquisition& operator=(const ObjectAcquisition&) = delete;

    AcquisitionOutcome Run();

private:
    bool FetchRecord();
    bool FetchOnce();
    bool AcceptRecord();
    bool IsEndless();
    void Count();
    void MarkRecord();
    void GiveUp();
    void StoringFailed();
    void Stop(const QString& reason) { failure_ = reason; }
    AcquisitionOutcome Outcome() const;

    Contenitore& window_;
    const Ui::Contenitore& controls_;
    component::RecordData& object_;
    RecordAcceptance acceptance_;
    const RecordCounters counters_;
    const MemoryAnswer status_;
    int attempt_ = 1;
    bool end_of_data_ = false;
    std::string received_command_;
    int punches_ = 0;
    int delivered_ = 0;
    /// Those of them that the terminal counts as still to be acquired.
    int delivered_to_acquire_ = 0;
    QString failure_;
};

AcquisitionOutcome ObjectAcquisition::Run()
{
    while (FetchRecord() && AcceptRecord()) {
    }
    return Outcome();
}

/// Up to `Tentativi` attempts at the next record; false when there is none in hand.
bool ObjectAcquisition::FetchRecord()
{
    attempt_ = 1;
    while (NumericValue(controls_.Tentativi->text()) >= attempt_) {
        if (PressioneTastoEsc(window_.Station())) {
            Stop(QStringLiteral("Acquisizione interrotta."));
            return false;
        }
        if (!acceptance_.SecureRoom()) {
            StoringFailed();
            return false;
        }
        if (FetchOnce()) return true;
        if (end_of_data_) return false;
    }
    GiveUp();
    return false;
}

bool ObjectAcquisition::FetchOnce()
{
    WaitTerminalDelay(window_.State(), window_.Station());
    std::int16_t terminal = window_.State().CurrentTerminalNumber;
    // The field itself is the argument: what it holds at this moment, not what it held before.
    const std::string priority = ToWindows1252(controls_.Priorita->text()).toStdString();
    if (object_.GetNextRecord(terminal, priority)) return true;
    received_command_ = object_.ReceivedCommand();
    end_of_data_ = received_command_ == kNoMoreRecords;
    if (end_of_data_) return false;
    if (received_command_ != kTimedOut)
        controls_.PannelloComunicazione->setText(ComponentText(received_command_));
    ++attempt_;
    controls_.PanelTentativi->setText(QString::number(attempt_));
    return false;
}

/// Without a single attempt there is no error to show.
void ObjectAcquisition::GiveUp()
{
    constexpr int kShownOfError = 50;
    if (attempt_ < 2) {
        controls_.PannelloPercentuale->setValue(0);
        return Stop(QStringLiteral("Il numero di tentativi è 0."));
    }
    const QString error = ComponentText(received_command_).left(kShownOfError);
    DisplayErroreComunicazione(error);
    Stop(QStringLiteral("Errore:") + error);
}

/// True when the acquisition goes on.
bool ObjectAcquisition::AcceptRecord()
{
    ++delivered_;
    if (IsEndless()) return false;
    const RecordAcceptance::Result result = acceptance_.Store();
    if (!acceptance_.LastRecord().Deleted) ++delivered_to_acquire_;
    switch (result) {
        case RecordAcceptance::Result::Skipped:
            break;
        case RecordAcceptance::Result::Stored:
            Count();
            MarkRecord();
            break;
        case RecordAcceptance::Result::NotStored:
            StoringFailed();
            break;
        case RecordAcceptance::Result::Unwritable:
            Stop(QStringLiteral("Il terminale ha consegnato una timbratura che non si può scrivere "
                                "(%1): resta nel terminale, e l'acquisizione si ferma.")
                     .arg(acceptance_.Fault()));
            TellCritical(window_, failure_);
            break;
    }
    return failure_.isEmpty();
}

/// A skipped record is not marked, and a terminal that always delivers the oldest unmarked one
/// delivers it for ever.
bool ObjectAcquisition::IsEndless()
{
    const std::int64_t capacity = std::max(counters_.max_records, 0);
    if (delivered_ <= capacity + kMostRecordsMeanwhile) return false;
    Stop(QStringLiteral("Il terminale consegna registrazioni senza fine: più di quante ne contiene "
                        "la sua memoria (%1).")
             .arg(capacity));
    TellCritical(window_, failure_);
    return true;
}

void ObjectAcquisition::Count()
{
    AddTo(*controls_.PannelloTimbrature, +1);
    AddTo(*controls_.PannelloAcquisire, -1);
    ++punches_;
    const int declared = RecordsToAcquire(counters_);
    controls_.PannelloPercentuale->setValue(std::max(100 * (declared - punches_) / declared, 0));
}

void ObjectAcquisition::MarkRecord()
{
    QString code;
    const QString thrown = GuardComponentCalls(window_, [&] {
        if (!acceptance_.Mark())
            code = QStringLiteral("Errore:") + ComponentText(object_.ReceivedCommand());
    });
    if (!thrown.isEmpty()) code = thrown;
    if (code.isEmpty()) return;
    controls_.PannelloComunicazione->setText(code);
    Stop(
        QStringLiteral("Una timbratura è stata scritta nel file, ma il terminale non l'ha segnata "
                       "come acquisita: la prossima acquisizione la scriverà di nuovo."));
    TellCritical(window_, failure_, code);
}

void ObjectAcquisition::StoringFailed()
{
    Stop(TellNotStored(
        window_, acceptance_.StoreError(),
        QStringLiteral(
            "Le timbrature sono ancora nel terminale: rimediare e acquisire di nuovo.")));
}

AcquisitionOutcome ObjectAcquisition::Outcome() const
{
    if (!failure_.isEmpty()) return {.done = false, .reason = failure_};
    if (status_ != MemoryAnswer::Good)
        return {.done = false, .reason = QStringLiteral("Lo stato della memoria non è arrivato.")};
    const int declared = RecordsToAcquire(counters_);
    if (delivered_to_acquire_ < declared)
        return {.done = false,
                .reason = QStringLiteral("Il terminale dichiarava %1 timbrature da acquisire e ne "
                                         "ha consegnate %2.")
                              .arg(declared)
                              .arg(delivered_to_acquire_)};
    return {.done = true, .reason = {}, .punches = punches_};
}

}  // namespace

AcquisitionOutcome GestioneAcquisizione(Contenitore& window, PunchFile& file,
                                        const RecordCounters& counters, MemoryAnswer status)
{
    return ObjectAcquisition(window, file, counters, status).Run();
}

}  // namespace orlo
