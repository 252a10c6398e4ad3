#pragma once

#include "registry/terminal_record.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace orlo
{

inline constexpr int kRingDays = 7;
inline constexpr int kRingsOfDay = 24;
inline constexpr int kRingSlots = kRingDays * kRingsOfDay;

/// A bell ring of an Orlo or Sipa terminal. Hour and minute 0: an empty slot.
struct RingEntry {
    std::int16_t Word = 0;  ///< first word, which nothing sets
    std::int16_t Hour = 0;
    std::int16_t Minute = 0;
    std::int16_t HowLong = 0;  ///< duration 0..10, 0 = no ring

    bool operator==(const RingEntry&) const = default;
};

/// The rings of all terminals, by slot and terminal number - 1.
using RingTable = std::array<std::array<RingEntry, kTerminalSlots>, kRingSlots>;

/// Slot of ring 1..24 on day 0..6, day 0 being Sunday.
constexpr std::size_t RingSlot(int day, int ring)
{
    return static_cast<std::size_t>(day * kRingsOfDay + ring - 1);
}

/// Throws std::out_of_range for a terminal outside 1..32.
inline RingEntry& RingOf(RingTable& table, int terminal, int day, int ring)
{
    return table.at(RingSlot(day, ring)).at(static_cast<std::size_t>(terminal - 1));
}
inline const RingEntry& RingOf(const RingTable& table, int terminal, int day, int ring)
{
    return table.at(RingSlot(day, ring)).at(static_cast<std::size_t>(terminal - 1));
}

}  // namespace orlo
