#include "simulator/line_pace.h"

#include <algorithm>
#include <cstdint>

namespace orlo::simulator
{

namespace
{

constexpr std::int64_t kBitsPerByte = 10;
constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::size_t kPieceBytes = 4;

}  // namespace

Instant LinePace::LineTime(std::size_t bytes) const
{
    if (bits_per_second_ == 0) return Instant(0);
    const std::int64_t bits = static_cast<std::int64_t>(bytes) * kBitsPerByte;
    // Rounded up: never faster than the line.
    return Instant((bits * kNanosecondsPerSecond + bits_per_second_ - 1) / bits_per_second_);
}

Instant LinePace::Heard(Instant now)
{
    if (now >= burst_start_ + LineTime(burst_bytes_)) {
        burst_start_ = now;
        burst_bytes_ = 0;
    }
    ++burst_bytes_;
    return burst_start_ + LineTime(burst_bytes_);
}

std::vector<LineEvent> LinePace::Schedule(const Transmission& transmission, Instant start) const
{
    const std::string& bytes = transmission.bytes;
    const Instant pause = transmission.byte_pause;
    const bool at_once = bits_per_second_ == 0 && pause == Instant(0);
    const std::size_t piece = at_once ? bytes.size() : pause > Instant(0) ? 1 : kPieceBytes;

    std::vector<LineEvent> events;
    for (std::size_t sent = 0; sent < bytes.size(); sent += piece) {
        const std::size_t through = std::min(sent + piece, bytes.size());
        const Instant taken = std::max(LineTime(through), pause * static_cast<int>(through));
        events.push_back({start + taken, bytes.substr(sent, piece), std::nullopt});
    }
    if (transmission.hang_up) {
        if (events.empty()) events.push_back({start, {}, std::nullopt});
        events.back().hang_up = transmission.hang_up;
    }
    return events;
}

}  // namespace orlo::simulator
