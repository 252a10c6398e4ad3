#include "bells/sort_suonerie.h"

#include <algorithm>
#include <limits>

namespace orlo
{

namespace
{

/// An entry at midnight is an empty one, whatever its duration.
int Key(const RingEntry& entry)
{
    const int time = entry.Hour * 100 + entry.Minute;
    return time == 0 ? std::numeric_limits<int>::max() : time;
}

}  // namespace

void SortSuonerie(RingTable& table, int terminal)
{
    for (int day = 0; day < kRingDays; ++day) {
        std::array<RingEntry, kRingsOfDay> rings;
        for (int ring = 1; ring <= kRingsOfDay; ++ring)
            rings.at(static_cast<std::size_t>(ring - 1)) = RingOf(table, terminal, day, ring);
        std::ranges::stable_sort(rings, {}, Key);
        for (int ring = 1; ring <= kRingsOfDay; ++ring)
            RingOf(table, terminal, day, ring) = rings.at(static_cast<std::size_t>(ring - 1));
    }
}

}  // namespace orlo
