#include "acquisition/gestione_acquisizione.h"

#include "acquisition/acquisition_messages.h"
#include "acquisition/answer_acceptance.h"
#include "link/pressione_tasto_esc.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"
#include "registry/port_session.h"
#include "registry/windows_1252.h"

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

/// Good answers in a row that bring neither a record nor a lower count: the terminal's memory and
/// its count disagree, and asking on would never end.
constexpr int kMostIdleAnswers = 3;

OutputRules RulesOf(const ProgramState& state)
{
    const auto slot = static_cast<std::size_t>(state.CurrentTerminalNumber - 1);
    return {.type_code = state.TerminalTable.at(slot).Tipo,
            .tipo_tracciato = state.TipoTracciato,
            .codice_azienda = ToWindows1252(state.CodiceAzienda).toStdString()};
}

/// One run of the loop: the window's controls, the port, and how far it has come.
class SerialAcquisition
{
public:
    SerialAcquisition(Contenitore& window, PunchFile& file, std::int16_t count, MemoryAnswer status)
        : window_(window),
          controls_(window.Controls()),
          acceptance_(window.State().CurrentTerminalNumber, RulesOf(window.State()), file,
                      window.State().UnstoredTerminals),
          count_(count),
          initial_count_(count),
          status_(status)
    {
    }

    AcquisitionOutcome Run();

private:
    void AcquireOneAnswer(SerialPortControl& port);
    bool TryOnce(SerialPortControl& port);
    bool TakeAnswer(std::string_view answer);
    void CountAgain();
    void WatchForIdleAnswers(std::int16_t count_before);
    void StopDisagreeing(const QString& text);
    bool FailedAttempt(const QString& caption);
    void StoringFailed();
    void Stop(const QString& reason);
    QString WhyNoPort() const;
    void NoteShortRecord();
    AcquisitionOutcome Outcome() const;

    Contenitore& window_;
    const Ui::Contenitore& controls_;
    AnswerAcceptance acceptance_;
    std::int16_t count_;
    const std::int16_t initial_count_;
    MemoryAnswer status_;
    int attempt_ = 1;
    int idle_answers_ = 0;
    int delivered_at_this_count_ = 0;
    int punches_ = 0;
    bool counts_disagree_ = false;
    bool too_many_records_ = false;
    /// What the last attempt failed by; without any attempt the number of attempts is the reason.
    QString attempt_failure_ = QStringLiteral("Il numero di tentativi è 0.");
    QString failure_;
};

AcquisitionOutcome SerialAcquisition::Run()
{
    controls_.PanelTentativi->setText(QStringLiteral("1"));
    {
        const PortSession session(window_);
        if (session.Port() == nullptr) Stop(WhyNoPort());
        while (count_ > 0) AcquireOneAnswer(*session.Port());
    }
    controls_.PanelTentativi->clear();
    controls_.PannelloPercentuale->setValue(0);
    if (idle_answers_ >= kMostIdleAnswers) TellCritical(window_, failure_);
    if (too_many_records_)
        TellCritical(window_,
                     QStringLiteral("Il terminale ha risposto con più di %1 timbrature: non sono "
                                    "state scritte e restano nel terminale.")
                         .arg(kMostRecordsInAnswer));
    return Outcome();
}

/// Up to `Tentativi` attempts at one answer; when they are used up the acquisition ends.
void SerialAcquisition::AcquireOneAnswer(SerialPortControl& port)
{
    attempt_ = 1;
    while (NumericValue(controls_.Tentativi->text()) >= attempt_) {
        if (PressioneTastoEsc(window_.Station()))
            return Stop(QStringLiteral("Acquisizione interrotta."));
        if (!acceptance_.SecureRoom()) return StoringFailed();
        if (TryOnce(port)) return;
        if (count_ == 0) return;
    }
    Stop(attempt_failure_);
}

/// One request and its answer; true when the answer was accepted.
bool SerialAcquisition::TryOnce(SerialPortControl& port)
{
    const bool asks_again = acceptance_.AsksAgain();
    const std::string answer = ExchangeTelegram(
        window_.Station(), port, window_.State().CurrentTerminalNumber, acceptance_.NextRequest());
    const bool arrived = IsAnswer(answer);
    // A terminal that was only late answers the request that was given up and the repeated one. Its
    // second answer would be taken for the answer to the next request, and so on to the end.
    if (asks_again || !arrived) LetLineRunOut(window_.Station(), port);
    if (arrived) return TakeAnswer(answer);
    acceptance_.ExchangeFailed();
    return FailedAttempt(answer == kTimeout ? kTimeoutCaption : kRxErrorCaption);
}

bool SerialAcquisition::TakeAnswer(std::string_view answer)
{
    switch (acceptance_.Take(answer)) {
        case AnswerAcceptance::Result::NoPunches:
            return FailedAttempt(kRxErrorCaption);
        case AnswerAcceptance::Result::TooManyRecords:
            too_many_records_ = true;
            return FailedAttempt(
                QStringLiteral("Errore: più di %1 timbrature in una risposta, non scritte")
                    .arg(kMostRecordsInAnswer));
        case AnswerAcceptance::Result::NotStored:
            StoringFailed();
            return false;
        case AnswerAcceptance::Result::Accepted:
            break;
    }
    NoteShortRecord();
    controls_.PannelloComunicazione->setText(kCommunicationOk);
    controls_.PanelTentativi->setText(QStringLiteral("1"));
    CountAgain();
    return true;
}

/// Asks for the counters; the lines just written reach the disk while the request is on the line.
void SerialAcquisition::CountAgain()
{
    bool stored = false;
    status_ = StatoMemoria(window_, /*may_open_port=*/false, [&] { stored = acceptance_.Sync(); });
    if (!stored) return StoringFailed();
    punches_ += acceptance_.LastAnswer().records;
    too_many_records_ = false;
    const std::int16_t count_before = count_;
    count_ = PunchesToAcquire(window_.State());
    const double still_to_acquire = 100.0 / initial_count_ * count_;
    controls_.PannelloPercentuale->setValue(
        std::clamp(static_cast<int>(std::nearbyint(still_to_acquire)), 0, 100));
    WatchForIdleAnswers(count_before);
}

/// Ends what would go on for ever: a terminal whose memory and count disagree.
void SerialAcquisition::WatchForIdleAnswers(std::int16_t count_before)
{
    const int delivered = acceptance_.LastAnswer().WholeRecords();
    const bool lower = count_ < count_before;
    idle_answers_ = lower || delivered > 0 ? 0 : idle_answers_ + 1;
    delivered_at_this_count_ = lower ? 0 : delivered_at_this_count_ + delivered;
    if (count_ == 0) return;
    if (idle_answers_ >= kMostIdleAnswers)
        StopDisagreeing(
            QStringLiteral("Il terminale dichiara %1 timbrature da acquisire ma non ne consegna."));
    else if (delivered_at_this_count_ > count_ + kMostRecordsInAnswer)
        StopDisagreeing(QStringLiteral(
            "Il terminale dichiara sempre %1 timbrature da acquisire e ne ha consegnate di più."));
}

void SerialAcquisition::StopDisagreeing(const QString& text)
{
    Stop(text.arg(count_));
    counts_disagree_ = true;
}

bool SerialAcquisition::FailedAttempt(const QString& caption)
{
    ++attempt_;
    controls_.PanelTentativi->setText(QString::number(attempt_));
    controls_.PannelloComunicazione->setText(caption);
    attempt_failure_ = caption;
    return false;
}

void SerialAcquisition::StoringFailed()
{
    Stop(TellNotStored(window_, acceptance_.StoreError(),
                       QStringLiteral("Le timbrature sono ancora nel terminale: rimediare e "
                                      "acquisire di nuovo prima di chiudere il programma.")));
}

void SerialAcquisition::Stop(const QString& reason)
{
    failure_ = reason;
    count_ = 0;
}

/// What the caption says of the port; it says nothing of a terminal without one, whose acquisition
/// ends like that of a port that cannot be opened.
QString SerialAcquisition::WhyNoPort() const
{
    const QString caption = controls_.PannelloComunicazione->text();
    return caption.isEmpty() ? kPortNotOpened : caption;
}

void SerialAcquisition::NoteShortRecord()
{
    if (acceptance_.LastAnswer().last_record_cut_short)
        window_.Station().trace.Note(
            QStringLiteral(
                "terminale %1: ultima timbratura della risposta incompleta, scritta così com'è")
                .arg(window_.State().CurrentTerminalNumber));
}

AcquisitionOutcome SerialAcquisition::Outcome() const
{
    if (!failure_.isEmpty()) return {.done = false, .reason = failure_};
    switch (status_) {
        case MemoryAnswer::Good:
            return {.done = true, .reason = {}, .punches = punches_};
        case MemoryAnswer::Timeout:
            return {.done = false, .reason = kTimeoutCaption};
        case MemoryAnswer::BadFrame:
            return {.done = false, .reason = kRxErrorCaption};
        case MemoryAnswer::NoCounters:
            return {
                .done = false,
                .reason = QStringLiteral("La risposta del terminale non contiene i contatori.")};
        case MemoryAnswer::PortNotOpen:
        case MemoryAnswer::Refused:
        case MemoryAnswer::NotAsked:
            break;
    }
    return {.done = false, .reason = WhyNoPort()};
}

}  // namespace

AcquisitionOutcome GestioneAcquisizione(Contenitore& window, PunchFile& file, std::int16_t count,
                                        MemoryAnswer status)
{
    return SerialAcquisition(window, file, count, status).Run();
}

}  // namespace orlo
