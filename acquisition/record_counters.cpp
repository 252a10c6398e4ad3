#include "acquisition/record_counters.h"

#include "registry/component_call.h"
#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/wait_terminal_delay.h"

#include <algorithm>
#include <limits>

namespace orlo
{

std::int16_t RecordsToAcquire(const RecordCounters& counters)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const std::int64_t count =
        std::int64_t{counters.max_records} - counters.trasmitted - counters.free;
    return static_cast<std::int16_t>(std::clamp<std::int64_t>(count, Limits::min(), Limits::max()));
}

std::optional<RecordCounters> ReadRecordCounters(Contenitore& window)
{
    ProgramState& state = window.State();
    component::RecordData& records = *state.Component->RecordDataObject;
    WaitTerminalDelay(state, window.Station());
    std::int16_t terminal = state.CurrentTerminalNumber;
    std::int16_t priority = state.CurrentPriority;
    if (!records.GetRecordsInfo(terminal, priority)) {
        window.Controls().PannelloComunicazione->setText(QStringLiteral("Errore:") +
                                                         ComponentText(records.ReceivedCommand()));
        return std::nullopt;
    }
    return RecordCounters{.max_records = records.MaxRecords(),
                          .trasmitted = records.TrasmittedRecords(),
                          .free = records.FreeRecords()};
}

}  // namespace orlo
