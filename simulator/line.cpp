#include "simulator/line.h"

#include <algorithm>
#include <utility>

namespace orlo::simulator
{

namespace
{

std::size_t MostRecords(const Terminal& terminal, std::span<const Fault> faults)
{
    std::size_t most = terminal.RecordsPerAnswer();
    for (const Fault& fault : faults)
        if (fault.kind == FaultKind::TooManyRecords) most = static_cast<std::size_t>(fault.value);
    return most;
}

std::string WithFaults(std::string deed, std::span<const Fault> faults)
{
    std::string_view separator = "; guasto: ";
    for (const Fault& fault : faults) {
        deed.append(separator).append(FaultName(fault.kind));
        separator = ", ";
    }
    return deed;
}

}  // namespace

Line::Line(LineSettings settings, std::vector<Terminal> terminals, FaultPlan faults,
           Journal journal)
    : settings_(settings),
      terminals_(std::move(terminals)),
      faults_(std::move(faults)),
      journal_(std::move(journal)),
      pace_(settings.bits_per_second)
{
}

std::vector<LineEvent> Line::Receive(std::string_view bytes, Instant now)
{
    std::vector<LineEvent> events;
    for (const char byte : bytes) {
        const Instant heard = pace_.Heard(now);
        const std::optional<Telegram> request = reader_.Take(byte);
        if (!request) continue;
        const std::vector<LineEvent> answer = Serve(*request, heard);
        events.insert(events.end(), answer.begin(), answer.end());
    }
    std::stable_sort(events.begin(), events.end(),
                     [](const LineEvent& a, const LineEvent& b) { return a.due < b.due; });
    return events;
}

void Line::HangUp()
{
    reader_.Forget();
    pace_ = LinePace(settings_.bits_per_second);
    busy_until_.clear();
}

std::vector<LineEvent> Line::Serve(const Telegram& request, Instant heard)
{
    const auto& [sound, number, command] = request;
    if (!sound) {
        Note(number, command, "telegramma errato, ignorato");
        return {};
    }
    const std::vector<Fault> faults = faults_.Next(command);
    if (Has(faults, FaultKind::LostRequest)) {
        Note(number, command, WithFaults("non ricevuta", faults));
        return {};
    }
    if (number == kAllTerminals) {
        for (Terminal& terminal : terminals_)
            Note(terminal.Number(), command, terminal.Obey(command));
        return {};
    }
    if (Terminal* terminal = Find(number)) return Exchange(*terminal, command, heard, faults);
    Note(number, command, "nessun terminale");
    return {};
}

std::vector<LineEvent> Line::Exchange(Terminal& terminal, const std::string& command, Instant heard,
                                      std::span<const Fault> faults)
{
    const Reply reply = terminal.Answer(command, MostRecords(terminal, faults));
    Note(terminal.Number(), command, WithFaults(reply.deed, faults), reply.data);

    const Transmission transmission = Transmit(terminal.Number(), reply.data, faults);
    Instant& busy_until = busy_until_[terminal.Number()];
    const Instant start = std::max(heard, busy_until) + settings_.turnaround + transmission.late;
    std::vector<LineEvent> events = pace_.Schedule(transmission, start);
    if (!events.empty()) busy_until = events.back().due;
    return events;
}

Terminal* Line::Find(int number)
{
    const auto found =
        std::find_if(terminals_.begin(), terminals_.end(),
                     [&](const Terminal& terminal) { return terminal.Number() == number; });
    return found == terminals_.end() ? nullptr : &*found;
}

void Line::Note(int address, const std::string& command, const std::string& deed,
                const std::string& answer) const
{
    if (journal_) journal_({address, command, deed, answer});
}

}  // namespace orlo::simulator
