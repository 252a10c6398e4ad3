#include "acquisition/frm_monitor.h"
#include "acquisition/monitor.h"
#include "acquisition/monitor_reading.h"
#include "acquisition/object_record.h"
#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"
#include "registry/wait_terminal_delay.h"

#include "ui_frm_monitor.h"

#include <algorithm>
#include <limits>

namespace orlo
{

namespace
{

constexpr std::int32_t kWholeMemory = 4000;

/// One reading of an object-driven terminal's memory, record by record.
class ObjectMonitor
{
public:
    explicit ObjectMonitor(FrmMonitor& form)
        : form_(form),
          desk_(form.Desk()),
          object_(*form.Desk().State().Component->RecordDataObject),
          reading_(form)
    {
    }

    void Run();

private:
    enum class Record { Read, EndOfData, Missing };

    void Read();
    std::optional<std::int16_t> RecordsToRead();
    void GetRecordsOrlo(int records);
    Record GetRecord(std::int16_t number);
    bool TryOnce(std::int16_t number, int attempt);
    void ShowRead(int read, int percent);

    FrmMonitor& form_;
    Contenitore& desk_;
    component::RecordData& object_;
    MonitorReading reading_;
    bool begun_ = false;
    std::string code_;
};

void ObjectMonitor::Run()
{
    const QString thrown = GuardComponentCalls(desk_, [this] { Read(); });
    if (!thrown.isEmpty()) reading_.Fail(thrown);
    // Before the operator is told: the line costs money while he reads.
    desk_.HangUpBehindCommand();
    if (begun_ || reading_.Failed()) reading_.Finish();
}

void ObjectMonitor::Read()
{
    const std::optional<std::int16_t> records = RecordsToRead();
    // Opened for an empty memory too: another terminal's listing must not pass for this one's.
    if (!records || !reading_.OpenFile()) return;
    if (*records == 0) {
        desk_.Controls().PannelloComunicazione->setText(kCommunicationOk);
        return;
    }
    begun_ = true;
    GetRecordsOrlo(*records);
}

/// Nothing when the terminal refuses to tell.
std::optional<std::int16_t> ObjectMonitor::RecordsToRead()
{
    WaitTerminalDelay(desk_.State(), desk_.Station());
    std::int16_t terminal = desk_.State().CurrentTerminalNumber;
    std::int16_t priority = desk_.State().CurrentPriority;
    if (!object_.GetNumber(terminal, priority)) {
        reading_.Fail(QStringLiteral("Errore = ") + ComponentText(object_.ReceivedCommand()));
        return std::nullopt;
    }
    const std::int32_t present = object_.Records();
    form_.Controls().LabelTransazioni->setText(
        QStringLiteral("Transazioni Presenti:%1").arg(present));
    const bool whole = form_.Controls().ChkTuttaMemoria->isChecked();
    // The whole memory holds other than what is declared.
    if (!whole) reading_.NoteDeclared(present);
    constexpr std::int32_t kMost = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(whole ? kWholeMemory : present, 0, kMost));
}

/// 32767 records at the most. The number of the last one has no successor in 16 bits.
void ObjectMonitor::GetRecordsOrlo(int records)
{
    for (int number = 1; number <= records; ++number) {
        const Record result = GetRecord(static_cast<std::int16_t>(number));
        if (result == Record::Missing) return;
        if (result == Record::EndOfData) {
            // How the attempt before it failed is no outcome.
            desk_.Controls().PannelloComunicazione->setText(kCommunicationOk);
            // The whole memory was asked for and had no more: that is all of it.
            if (form_.Controls().ChkTuttaMemoria->isChecked()) {
                ShowRead(number - 1, 100);
                reading_.ShowProgress(1, 1);
            }
            return;
        }
        ShowRead(number, 100 * number / records);
        reading_.ShowProgress(number, records);
    }
}

/// Up to `Tentativi` attempts. Missing: they are used up, or the operator wants no more.
ObjectMonitor::Record ObjectMonitor::GetRecord(std::int16_t number)
{
    int attempt = 1;
    for (; NumericValue(desk_.Controls().Tentativi->text()) >= attempt; ++attempt) {
        if (reading_.Stopped()) return Record::Missing;
        if (TryOnce(number, attempt)) return Record::Read;
        if (code_ == kNoMoreRecords) return Record::EndOfData;
    }
    reading_.Fail(attempt == 1 ? kNoAttempts : QStringLiteral("Errore: ") + ComponentText(code_));
    return Record::Missing;
}

bool ObjectMonitor::TryOnce(std::int16_t number, int attempt)
{
    // Before each record it would make an hour of the whole memory.
    if (number == 1 || attempt > 1) WaitTerminalDelay(desk_.State(), desk_.Station());
    // Taken by reference; the loop and the block keep their values.
    std::int16_t terminal = desk_.State().CurrentTerminalNumber;
    std::int16_t priority2 = desk_.State().CurrentPriority2;
    std::int16_t wanted = number;
    TextPanel& outcome = *desk_.Controls().PannelloComunicazione;
    if (object_.GetRecord(terminal, priority2, wanted)) {
        reading_.Add(
            {MonitorPunchOf(reading_.NextNumber(), ReadObjectRecord(object_), object_.Cause())});
        outcome.setText(kCommunicationOk);
        return true;
    }
    code_ = object_.ReceivedCommand();
    if (code_ != kNoMoreRecords) outcome.setText(QStringLiteral("Errore: ") + ComponentText(code_));
    return false;
}

void ObjectMonitor::ShowRead(int read, int percent)
{
    form_.Controls().LabelScaricate->setText(
        QStringLiteral("Transazioni Acquisite: %1 %2%").arg(read).arg(percent));
}

}  // namespace

void MonitorOrlo(FrmMonitor& form)
{
    if (form.Desk().State().Component != nullptr) ObjectMonitor(form).Run();
}

}  // namespace orlo
