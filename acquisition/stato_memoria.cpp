#include "acquisition/stato_memoria.h"

#include "acquisition/memory_counters.h"
#include "acquisition/record_counters.h"
#include "link/telegram.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/port_session.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace orlo
{

namespace
{

void StoreCounters(ProgramState& state, MemoryCounting counting, std::string_view answer)
{
    MemoryCounters counters = CutMemoryCounters(answer);
    state.CountersTerminal = state.CurrentTerminalNumber;
    state.TPnt = std::move(counters.TPnt);
    state.TrInMemory = CorrectedTrInMemory(counting, counters.TrInMemory);
    state.TpntOld = std::move(counters.TpntOld);
    state.TpntNew = std::move(counters.TpntNew);
}

void ShowCounters(Contenitore& window, const TerminalModel& model)
{
    const ProgramState& state = window.State();
    const Ui::Contenitore& controls = window.Controls();
    controls.PannelloCapacita->setText(model.capacity);
    controls.PannelloTimbrature->setText(
        QString::number(PunchesInMemory(model.counting, state.TPnt)));
    controls.PannelloAcquisire->setText(QString::number(CounterValue(state.TrInMemory)));
}

MemoryAnswer AskSerialTerminal(Contenitore& window, const TerminalModel& model,
                               SerialPortControl& port, const MeanwhileWork& meanwhile)
{
    TextPanel& outcome = *window.Controls().PannelloComunicazione;
    const std::string answer = ExchangeTelegram(
        window.Station(), port, window.State().CurrentTerminalNumber, "32", meanwhile);
    // Behind a failed exchange: the answer may be on its way still.
    if (!IsMemoryStatus(answer)) LetLineRunOut(window.Station(), port);
    if (answer == kTimeout) {
        outcome.setText(kTimeoutCaption);
        return MemoryAnswer::Timeout;
    }
    outcome.setText(kCommunicationOk);
    StoreCounters(window.State(), model.counting, answer);
    ShowCounters(window, model);
    if (answer == kRxError) return MemoryAnswer::BadFrame;
    return IsMemoryStatus(answer) ? MemoryAnswer::Good : MemoryAnswer::NoCounters;
}

MemoryAnswer AskObjectTerminal(Contenitore& window)
{
    if (window.State().Component == nullptr) return MemoryAnswer::NotAsked;
    const std::optional<RecordCounters> counters = ReadRecordCounters(window);
    if (!counters) return MemoryAnswer::Refused;
    const Ui::Contenitore& controls = window.Controls();
    controls.PannelloCapacita->setText(QString::number(counters->max_records));
    controls.PannelloTimbrature->setText(QString::number(counters->trasmitted));
    controls.PannelloFree->setText(QString::number(counters->free));
    controls.PannelloAcquisire->setText(
        QString::number(qint64{counters->max_records} - counters->trasmitted - counters->free));
    return MemoryAnswer::Good;
}

}  // namespace

MemoryAnswer StatoMemoria(Contenitore& window, bool may_open_port, const MeanwhileWork& meanwhile)
{
    window.Controls().PannelloComunicazione->clear();
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr) return MemoryAnswer::NotAsked;
    if (model->family == LinkFamily::Object) return AskObjectTerminal(window);

    std::optional<PortSession> session;
    if (may_open_port) session.emplace(window);
    SerialPortControl* const port =
        session ? session->Port() : window.Station().Comm(window.State().CurrentPort);
    if (port == nullptr) return MemoryAnswer::PortNotOpen;
    return AskSerialTerminal(window, *model, *port, meanwhile);
}

std::int16_t PunchesToAcquire(const ProgramState& state)
{
    constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(CounterValue(state.TrInMemory), kMost));
}

}  // namespace orlo
