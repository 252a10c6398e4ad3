#include "simulator/transmission.h"

#include "simulator/frame.h"
#include "simulator/punch.h"

#include <algorithm>
#include <utility>

namespace orlo::simulator
{

namespace
{

// Neither SOH nor STX nor CR: it must not be taken for the beginning or the end of a frame.
constexpr std::string_view kNoise = "\x7E\x55\xFF\x2A";

std::string Noise(int bytes)
{
    std::string noise;
    while (noise.size() < static_cast<std::size_t>(bytes)) noise += kNoise;
    noise.resize(static_cast<std::size_t>(bytes));
    return noise;
}

void ShortenLastRecord(std::string& data, int characters)
{
    const std::string_view end = kEndOfRecords;
    if (!data.ends_with(end) || data.size() < kRecordLength + end.size()) return;
    const std::size_t lost = std::min(static_cast<std::size_t>(characters), kRecordLength);
    data.erase(data.size() - end.size() - lost, lost);
}

void WrongChecksum(std::string& frame)
{
    char& checksum = frame[frame.size() - 2];
    checksum = static_cast<char>(static_cast<unsigned char>(checksum) ^ 1U);
}

void LoseFromTheMiddle(std::string& frame, int bytes)
{
    // SOH, address and CR stay.
    const std::size_t lost = std::min(static_cast<std::size_t>(bytes), frame.size() - 3);
    frame.erase(2, lost);
}

void KeepFirst(std::string& bytes, int count)
{
    const std::size_t kept = count == 0 ? bytes.size() / 2 : static_cast<std::size_t>(count);
    bytes.resize(std::min(kept, bytes.size()));
}

void SpoilAround(Transmission& answer, Fault fault)
{
    const std::chrono::milliseconds duration(fault.value);
    switch (fault.kind) {
        case FaultKind::LostAnswer:
            answer.bytes.clear();
            break;
        case FaultKind::LateAnswer:
            answer.late += duration;
            break;
        case FaultKind::NoiseBefore:
            answer.bytes.insert(0, Noise(fault.value));
            break;
        case FaultKind::NoiseAfter:
            answer.bytes += Noise(fault.value);
            break;
        case FaultKind::CrBeforeSoh:
            answer.bytes.insert(0, 1, kCr);
            break;
        case FaultKind::CutAnswer:
            KeepFirst(answer.bytes, fault.value);
            break;
        case FaultKind::ByteByByte:
            answer.byte_pause = duration;
            break;
        case FaultKind::HangUp:
            KeepFirst(answer.bytes, 0);
            answer.hang_up = duration;
            break;
        default:  // spoils the data or the bare frame, or nothing of the answer
            break;
    }
}

}  // namespace

// Data first, then the bare frame, then what surrounds it: so each fault finds the shape that it
// needs, whatever the others are.
Transmission Transmit(int terminal, std::string data, std::span<const Fault> faults)
{
    for (const Fault& fault : faults)
        if (fault.kind == FaultKind::ShortRecord) ShortenLastRecord(data, fault.value);
    return Transmit(AnswerFrame(terminal, data), faults);
}

Transmission Transmit(std::string frame, std::span<const Fault> faults)
{
    Transmission answer;
    answer.bytes = std::move(frame);
    for (const Fault& fault : faults) {
        if (fault.kind == FaultKind::WrongChecksum) WrongChecksum(answer.bytes);
        if (fault.kind == FaultKind::MissingBytes) LoseFromTheMiddle(answer.bytes, fault.value);
    }
    if (Has(faults, FaultKind::NoCr)) answer.bytes.pop_back();
    for (const Fault& fault : faults) SpoilAround(answer, fault);
    return answer;
}

bool Has(std::span<const Fault> faults, FaultKind kind)
{
    return std::any_of(faults.begin(), faults.end(),
                       [&](const Fault& f) { return f.kind == kind; });
}

}  // namespace orlo::simulator
