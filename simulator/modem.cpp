#include "simulator/modem.h"

#include "simulator/frame.h"

#include <algorithm>
#include <utility>

namespace orlo::simulator
{

Modem::Modem(const ModemSettings& settings, FarEnd& terminals, Journal journal)
    : settings_(settings), terminals_(terminals), journal_(std::move(journal))
{
    Reset();
}

std::vector<LineEvent> Modem::Receive(std::string_view bytes, Instant now)
{
    Elapse(now);
    for (const char byte : bytes) Take(byte, now);
    Elapse(now);
    return std::exchange(events_, {});
}

std::optional<Instant> Modem::WakeAt() const
{
    if (state_ == State::Dialling)
        return settings_.outcome == CallOutcome::Silence ? std::nullopt : std::optional(result_at_);
    std::optional<Instant> next = state_ == State::Data ? escape_.CompleteAt() : std::nullopt;
    if (!under_way_.empty()) next = std::min(next.value_or(Instant::max()), under_way_[0].due);
    return next;
}

void Modem::HangUp()
{
    PortClosed();
}

void Modem::PortClosed()
{
    if (connected_) Note("", "porta chiusa, linea lasciata");
    DropCall();
    command_line_.clear();
    events_.clear();
}

/// Does what time alone brings about.
void Modem::Elapse(Instant now)
{
    if (state_ == State::Dialling && settings_.outcome != CallOutcome::Silence && result_at_ <= now)
        EndDialling(now);
    while (!under_way_.empty() && under_way_.front().due <= now) {
        const LineEvent event = under_way_.front();
        under_way_.erase(under_way_.begin());
        PassOn(event, now);
    }
    const std::optional<Instant> escape = escape_.CompleteAt();
    if (state_ == State::Data && escape && *escape <= now) {
        state_ = State::Command;
        Note("+++", "modo comandi");
        Say(HayesResult::Ok, now);
    }
}

void Modem::Take(char byte, Instant now)
{
    switch (state_) {
        case State::Command:
            TakeCommandByte(byte, now);
            break;
        case State::Dialling:
            Note("", "chiamata interrotta");
            DropCall();
            Say(HayesResult::NoCarrier, now);
            break;
        case State::Data:
            escape_.Take(byte, now);
            for (LineEvent& event : terminals_.Receive({&byte, 1}, now))
                under_way_.push_back(std::move(event));
            std::stable_sort(under_way_.begin(), under_way_.end(),
                             [](const LineEvent& a, const LineEvent& b) { return a.due < b.due; });
            break;
    }
}

void Modem::TakeCommandByte(char byte, Instant now)
{
    if (echo_) events_.push_back({now, std::string(1, byte), std::nullopt});
    if (byte != kCr)
        command_line_ += byte;
    else
        CarryOut(std::exchange(command_line_, {}), now);
}

void Modem::CarryOut(const std::string& line, Instant now)
{
    // What stands before the AT was meant for somebody else.
    const std::size_t attention = std::min(line.find("AT"), line.find("at"));
    const auto commands =
        ParseHayes(attention == std::string::npos ? line : line.substr(attention));
    if (!commands) return;
    std::optional<HayesResult> result = HayesResult::Ok;
    for (const HayesCommand& command : *commands) {
        result = CarryOut(command, now);
        if (result != HayesResult::Ok) break;
    }
    Note(line, result == HayesResult::Error ? "comando sconosciuto" : "comando eseguito");
    if (result) Say(*result, now);
}

std::optional<HayesResult> Modem::CarryOut(const HayesCommand& command, Instant now)
{
    const bool on = command.number != 0;
    switch (command.letter) {
        case 'D':
            DropCall();
            state_ = State::Dialling;
            result_at_ = now + settings_.dial_time;
            return std::nullopt;
        case 'E':
            echo_ = on;
            break;
        case 'H':
            DropCall();
            break;
        case 'O':
            return GoOnLine(now);
        case 'Q':
            quiet_ = on;
            break;
        case 'V':
            in_words_ = on;
            break;
        case 'X':
            extended_ = on;
            break;
        case 'Z':
            DropCall();
            Reset();
            break;
        default:
            return HayesResult::Error;
    }
    return HayesResult::Ok;
}

std::optional<HayesResult> Modem::GoOnLine(Instant now)
{
    if (!connected_) return HayesResult::NoCarrier;
    state_ = State::Data;
    escape_.Begin(now);
    return HayesResult::Connect;
}

void Modem::EndDialling(Instant now)
{
    state_ = State::Command;
    switch (settings_.outcome) {
        case CallOutcome::Connect:
            connected_ = true;
            bytes_of_call_ = 0;
            state_ = State::Data;
            escape_.Begin(now);
            return Say(HayesResult::Connect, now);
        case CallOutcome::NoCarrier:
            return Say(HayesResult::NoCarrier, now);
        case CallOutcome::NoDialTone:
            return Say(HayesResult::NoDialTone, now);
        case CallOutcome::Busy:
            return Say(HayesResult::Busy, now);
        case CallOutcome::Silence:
            break;
    }
}

/// Bytes of a terminal have arrived here.
void Modem::PassOn(const LineEvent& event, Instant now)
{
    std::string bytes = event.bytes;
    const std::size_t limit = settings_.drop_after_bytes;
    const bool drops = limit != 0 && bytes_of_call_ + bytes.size() >= limit;
    if (drops) bytes.resize(limit - bytes_of_call_);
    bytes_of_call_ += bytes.size();
    // In command mode nobody takes them.
    if (state_ == State::Data && !bytes.empty())
        events_.push_back({now, std::move(bytes), std::nullopt});
    if (drops || event.hang_up) LoseCarrier(now);
}

void Modem::LoseCarrier(Instant now)
{
    DropCall();
    Note("", "portante persa");
    Say(HayesResult::NoCarrier, now);
}

void Modem::DropCall()
{
    state_ = State::Command;
    connected_ = false;
    under_way_.clear();
    terminals_.HangUp();
}

void Modem::Reset()
{
    echo_ = settings_.echo;
    quiet_ = false;
    in_words_ = true;
    extended_ = true;
}

void Modem::Say(HayesResult result, Instant now)
{
    if (quiet_) return;
    const std::string text = HayesText(result, in_words_, extended_);
    if (settings_.byte_pause == std::chrono::milliseconds(0)) {
        events_.push_back({now, text, std::nullopt});
        return;
    }
    Instant due = now;
    for (const char byte : text) {
        events_.push_back({due, std::string(1, byte), std::nullopt});
        due += settings_.byte_pause;
    }
}

void Modem::Note(const std::string& command, const std::string& deed) const
{
    if (journal_) journal_({-1, command, deed, {}});
}

}  // namespace orlo::simulator
