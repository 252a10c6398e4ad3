#include "acquisition/monitor.h"

#include "acquisition/frm_monitor.h"
#include "acquisition/memory_counters.h"
#include "acquisition/monitor_blocks.h"
#include "acquisition/monitor_reading.h"
#include "acquisition/stato_memoria.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/held_line.h"
#include "registry/numeric_value.h"
#include "registry/port_session.h"

#include "ui_frm_monitor.h"

namespace orlo
{

namespace
{

/// One reading of a serial terminal's memory, block by block.
class SerialMonitor
{
public:
    SerialMonitor(FrmMonitor& form, const TerminalModel& model)
        : form_(form), desk_(form.Desk()), reading_(form), model_(model)
    {
    }

    void Run();

private:
    enum class Block { Read, EndOfMemory, Missing, Stopped };

    bool ReadBlocks();
    Block ReadBlock(SerialPortControl& port, int block);
    Block TakeAnswer(int block, const std::string& answer);
    void AggiungeInLista(int block, const std::string& answer);
    void ShowPresent();
    void Caption(const QString& text) { desk_.Controls().PannelloComunicazione->setText(text); }

    FrmMonitor& form_;
    Contenitore& desk_;
    MonitorReading reading_;
    const TerminalModel& model_;
    MonitorRules rules_;
};

void SerialMonitor::Run()
{
    const MemoryAnswer status = StatoMemoria(desk_, /*may_open_port=*/true);
    if (status != MemoryAnswer::Good) reading_.NoteMissingStatus();
    const ProgramState& state = desk_.State();
    // After a status that did not come the counters of the one before it lead, but only of the same
    // terminal: another one's would say nothing of this memory.
    const bool own_counters = state.CountersTerminal == state.CurrentTerminalNumber;
    if (own_counters) ShowPresent();
    if (own_counters && !state.TPnt.empty() && ReadBlocks()) reading_.Finish();
    // What kept the port shut stands in the caption already, and says more.
    else if (status != MemoryAnswer::PortNotOpen ||
             desk_.Controls().PannelloComunicazione->text().isEmpty())
        reading_.TellOutcome();
}

void SerialMonitor::ShowPresent()
{
    // Two blanks on purpose; the text of an Orlo or a Sipa has none.
    form_.Controls().LabelTransazioni->setText(
        QStringLiteral("Transazioni Presenti:  %1")
            .arg(PunchesInMemory(model_.counting, desk_.State().TPnt)));
}

/// False when nothing was asked. The port is closed again behind it.
bool SerialMonitor::ReadBlocks()
{
    const PortSession session(desk_);
    if (session.Port() == nullptr || !reading_.OpenFile()) return false;
    if (NumericValue(desk_.Controls().Tentativi->text()) < 1) {
        reading_.Fail(kNoAttempts);
        return true;
    }
    const ProgramState& state = desk_.State();
    const auto slot = static_cast<std::size_t>(state.CurrentTerminalNumber - 1);
    rules_ = MonitorRulesFor(state.TerminalTable.at(slot).Tipo, model_.counting, state.TPnt,
                             state.TpntOld);
    const int last = LastMonitorBlock(state.TPnt);
    for (int block = 0; block <= last; ++block) {
        const Block result = ReadBlock(*session.Port(), block);
        if (result == Block::Stopped) break;
        if (result == Block::EndOfMemory) {
            reading_.ShowProgress(1, 1);
            break;
        }
        if (result == Block::Missing && session.Port()->LineLost()) {
            reading_.Fail(LostLineText(desk_));
            break;
        }
        // What follows is read all the same: the operator sees at least that.
        if (result == Block::Missing) reading_.NoteMissingBlock();
        reading_.ShowProgress(block + 1, last + 1);
    }
    reading_.NoteDeclared(PunchesInMemory(model_.counting, state.TPnt));
    return true;
}

SerialMonitor::Block SerialMonitor::ReadBlock(SerialPortControl& port, int block)
{
    bool failed_before = false;
    for (int attempt = 1; NumericValue(desk_.Controls().Tentativi->text()) >= attempt; ++attempt) {
        if (reading_.Stopped()) return Block::Stopped;
        const std::string answer = ExchangeTelegram(
            desk_.Station(), port, desk_.State().CurrentTerminalNumber, MonitorRequest(block));
        const bool arrived = IsAnswer(answer);
        if (!arrived || failed_before) LetLineRunOut(desk_.Station(), port);
        if (arrived) return TakeAnswer(block, answer);
        failed_before = true;
        Caption(answer == kTimeout ? kTimeoutCaption : kRxErrorCaption);
    }
    return Block::Missing;
}

SerialMonitor::Block SerialMonitor::TakeAnswer(int block, const std::string& answer)
{
    // Behind "END" too: how the attempt before it failed is no outcome.
    Caption(kCommunicationOk);
    if (IsEndOfMemory(answer)) return Block::EndOfMemory;
    AggiungeInLista(block, answer);
    return Block::Read;
}

void SerialMonitor::AggiungeInLista(int block, const std::string& answer)
{
    reading_.Add(DecodeMonitorAnswer(answer, reading_.NextNumber(), rules_));
    form_.Controls().LabelScaricate->setText(
        QStringLiteral("Transazioni Acquisite: %1").arg(PunchesRead(block, answer)));
}

}  // namespace

void Monitor(FrmMonitor& form)
{
    const TerminalModel* const model = form.Desk().ShownModel();
    if (model == nullptr)
        form.Desk().Controls().PannelloComunicazione->setText(kUnknownTypeError);
    else if (model->family == LinkFamily::Serial)
        SerialMonitor(form, *model).Run();
    else
        MonitorOrlo(form);
}

}  // namespace orlo
