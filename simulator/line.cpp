#include "simulator/line.h"

#include <algorithm>
#include <utility>

namespace orlo::simulator
{

namespace
{

/// A frame that pauses for so long is given up: its rest will not come.
constexpr Instant kLongestPause = std::chrono::seconds(1);

std::size_t MostRecords(const Terminal& terminal, std::span<const Fault> faults)
{
    std::size_t most = terminal.RecordsPerAnswer();
    for (const Fault& fault : faults)
        if (fault.kind == FaultKind::TooManyRecords) most = static_cast<std::size_t>(fault.value);
    return most;
}

std::optional<std::string> RefusalCode(std::span<const Fault> faults)
{
    for (const Fault& fault : faults)
        if (fault.kind == FaultKind::Refusal) return fault.text;
    return std::nullopt;
}

// Name and arguments, as a journal and the rules of the faults show them.
std::string CommandText(std::span<const std::string> fields)
{
    std::string text;
    for (const std::string& field : fields) text += (text.empty() ? "" : " ") + field;
    return text;
}

template <class AnyTerminal>
AnyTerminal* Find(std::vector<AnyTerminal>& terminals, int number)
{
    const auto found =
        std::find_if(terminals.begin(), terminals.end(),
                     [&](const AnyTerminal& terminal) { return terminal.Number() == number; });
    return found == terminals.end() ? nullptr : &*found;
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

Line::Line(LineSettings settings, std::vector<ObjectTerminal> terminals, FaultPlan faults,
           Journal journal)
    : settings_(settings),
      object_terminals_(std::move(terminals)),
      faults_(std::move(faults)),
      journal_(std::move(journal)),
      pace_(settings.bits_per_second)
{
}

std::vector<LineEvent> Line::Receive(std::string_view bytes, Instant now)
{
    std::vector<LineEvent> events;
    for (const char byte : bytes) {
        const std::vector<LineEvent> answer = Take(byte, pace_.Heard(now));
        events.insert(events.end(), answer.begin(), answer.end());
    }
    std::stable_sort(events.begin(), events.end(),
                     [](const LineEvent& a, const LineEvent& b) { return a.due < b.due; });
    return events;
}

std::vector<LineEvent> Line::Take(char byte, Instant heard)
{
    if (object_terminals_.empty()) {
        const std::optional<Telegram> request = reader_.Take(byte);
        return request ? Serve(*request, heard) : std::vector<LineEvent>();
    }
    if (heard > last_heard_ + kLongestPause) object_reader_.Forget();
    last_heard_ = heard;
    const std::optional<ObjectMessage> request = object_reader_.Take(byte);
    return request ? Serve(*request, heard) : std::vector<LineEvent>();
}

void Line::HangUp()
{
    reader_.Forget();
    object_reader_.Forget();
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
    if (Terminal* terminal = Find(terminals_, number))
        return Exchange(*terminal, command, heard, faults);
    Note(number, command, "nessun terminale");
    return {};
}

std::vector<LineEvent> Line::Exchange(Terminal& terminal, const std::string& command, Instant heard,
                                      std::span<const Fault> faults)
{
    const Reply reply = terminal.Answer(command, MostRecords(terminal, faults));
    Note(terminal.Number(), command, WithFaults(reply.deed, faults), reply.data);

    return Send(terminal.Number(), Transmit(terminal.Number(), reply.data, faults), heard);
}

std::vector<LineEvent> Line::Serve(const ObjectMessage& request, Instant heard)
{
    const std::string command = CommandText(request.fields);
    const std::vector<Fault> faults = faults_.Next(command);
    if (Has(faults, FaultKind::LostRequest)) {
        Note(request.terminal, command, WithFaults("non ricevuta", faults));
        return {};
    }
    ObjectTerminal* const terminal = Find(object_terminals_, request.terminal);
    if (terminal == nullptr) {
        Note(request.terminal, command, "nessun terminale");
        return {};
    }
    const std::optional<std::string> refusal = RefusalCode(faults);
    const ObjectReply reply =
        refusal ? ObjectReply{{*refusal}, "non eseguita"} : terminal->Answer(request.fields);
    Note(request.terminal, command, WithFaults(reply.deed, faults), CommandText(reply.fields));
    ObjectMessage answer = request;
    answer.fields = reply.fields;
    const std::optional<std::string> frame = ObjectFrame(FrameKind::Answer, answer);
    if (!frame) return {};
    return Send(request.terminal, Transmit(*frame, faults), heard);
}

std::vector<LineEvent> Line::Send(int terminal, const Transmission& answer, Instant heard)
{
    Instant& busy_until = busy_until_[terminal];
    const Instant start = std::max(heard, busy_until) + settings_.turnaround + answer.late;
    std::vector<LineEvent> events = pace_.Schedule(answer, start);
    if (!events.empty()) busy_until = events.back().due;
    return events;
}

void Line::Note(int address, const std::string& command, const std::string& deed,
                const std::string& answer) const
{
    if (journal_) journal_({address, command, deed, answer});
}

}  // namespace orlo::simulator
