#pragma once

#include "simulator/transmission.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace orlo::simulator
{

/// A moment of a clock that never goes back, counted from a start of no meaning.
using Instant = std::chrono::nanoseconds;

/// Something that happens on the terminals' end of the line.
struct LineEvent {
    Instant due;
    std::string bytes;
    /// The line is lost behind the bytes, for so long.
    std::optional<std::chrono::milliseconds> hang_up;
};

/// When bytes are through on a line of a given speed, 10 bits a byte. All times are reckoned from
/// the first byte of a burst, so that no rounding adds up.
class LinePace
{
public:
    /// 0 bits per second: the line takes no time.
    explicit LinePace(int bits_per_second) : bits_per_second_(bits_per_second) {}

    /// One byte more was put on the line at `now` or earlier: when its last bit arrives. Bytes put
    /// on it all at once arrive one after the other.
    Instant Heard(Instant now);

    /// The transmission from `start` on in pieces of a few bytes, each due when its last bit is
    /// through; on a line that takes no time in one piece.
    std::vector<LineEvent> Schedule(const Transmission& transmission, Instant start) const;

private:
    Instant LineTime(std::size_t bytes) const;

    int bits_per_second_;
    Instant burst_start_{0};
    std::size_t burst_bytes_ = 0;
};

}  // namespace orlo::simulator
