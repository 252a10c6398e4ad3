#include "simulator/component/terminal_line.h"

#include "simulator/object_requests.h"

#include <algorithm>
#include <utility>

namespace orlo::simulator
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience(2);

}  // namespace

void TerminalLine::Open(std::int16_t port, std::int32_t bits_per_second)
{
    Close();
    port_ = "COM" + std::to_string(port);
    closed_ = WhyNotOpen(port, bits_per_second).value_or(port_ + " caduta");
}

std::optional<std::string> TerminalLine::WhyNotOpen(std::int16_t port, std::int32_t bits_per_second)
{
    if (port < 1 || static_cast<std::size_t>(port) > devices_.size()) return port_ + " non esiste";
    const std::string& name = devices_.at(static_cast<std::size_t>(port) - 1);
    if (name.empty()) return port_ + " non assegnata";
    const std::optional<std::string> reason = device_.Open(name, bits_per_second);
    if (!reason) return std::nullopt;
    return port_ + " non si apre: " + *reason;
}

void TerminalLine::Close()
{
    device_.Close();
    pending_.clear();
    echo_.clear();
    closed_ = "Linea non aperta";
}

std::string TerminalLine::LineCode()
{
    return device_.IsOpen() ? kTimeOut : "98," + closed_;
}

void TerminalLine::SendString(std::string_view text)
{
    echo_ = text;
    // What does not go out shows as an answer that does not come.
    static_cast<void>(device_.Write(text, Clock::now() + kPatience));
}

std::string TerminalLine::ReceiveString(std::size_t longest, std::chrono::milliseconds patience,
                                        char terminator)
{
    const SerialDevice::Deadline deadline = Clock::now() + patience;
    const auto end = [&] {
        const std::size_t found =
            terminator == '\0' ? std::string::npos : pending_.find(terminator);
        return found == std::string::npos ? found : found + 1;
    };
    const auto enough = [&] {
        return terminator == '\0' ? !pending_.empty()
                                  : end() != std::string::npos || pending_.size() >= longest;
    };
    while (!enough()) {
        const std::string arrived = device_.Read(deadline);
        if (arrived.empty()) break;
        pending_ += arrived;
        DropEcho();
    }
    std::string text = pending_.substr(0, std::min(end(), longest));
    pending_.erase(0, text.size());
    return text;
}

/// A modem that only repeats what it was told has not answered yet.
void TerminalLine::DropEcho()
{
    const auto [text, echo] =
        std::mismatch(pending_.begin(), pending_.end(), echo_.begin(), echo_.end());
    const bool echoes_on = text == pending_.end();
    echo_.erase(echo_.begin(), echoes_on ? echo : echo_.end());
    pending_.erase(pending_.begin(), text);
}

Outcome TerminalLine::Exchange(std::int16_t terminal, std::int16_t priority,
                               std::vector<std::string> fields)
{
    const ObjectMessage request{++sequence_, terminal, priority, std::move(fields)};
    const std::optional<std::string> frame = ObjectFrame(FrameKind::Request, request);
    if (!frame) return {kTooLong, {}};
    const SerialDevice::Deadline deadline = Clock::now() + kPatience;
    pending_.clear();
    echo_.clear();
    device_.Discard();
    if (!device_.Write(*frame, deadline)) return {LineCode(), {}};
    std::optional<ObjectMessage> answer = WaitForAnswer(request, deadline);
    if (!answer) return {LineCode(), {}};
    if (answer->fields.empty() || answer->fields.front().empty()) return {kWrongAnswer, {}};

    const std::string result = answer->fields.front();
    answer->fields.erase(answer->fields.begin());
    return {result == request::kDone ? "" : result, std::move(answer->fields)};
}

std::optional<ObjectMessage> TerminalLine::WaitForAnswer(const ObjectMessage& request,
                                                         SerialDevice::Deadline deadline)
{
    ObjectFrameReader reader(FrameKind::Answer);
    // A line that never ceases to bring noise has its end at the deadline as well.
    while (Clock::now() < deadline) {
        for (const char byte : device_.Read(deadline)) {
            std::optional<ObjectMessage> answer = reader.Take(byte);
            const bool ours = answer && answer->sequence == request.sequence &&
                              answer->terminal == request.terminal;
            if (ours) return answer;
        }
        if (!device_.IsOpen()) break;
    }
    return std::nullopt;
}

}  // namespace orlo::simulator
