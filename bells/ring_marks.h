#pragma once

#include "registry/ring_table.h"

#include <QStringList>

#include <vector>

namespace orlo
{

/// A ring in the drawn week.
struct RingMark {
    int day = 0;     ///< column, from 0
    int ring = 0;    ///< what a click on it chooses
    int minute = 0;  ///< of the day, 0..1439
    int duration = 0;
    bool hollow = false;
    bool chosen = false;

    bool operator==(const RingMark&) const = default;
};

/// The rings of an Orlo or a Sipa: those of ring 1..24 as 0..23, an empty slot has no mark. The one
/// that is entered, of the day that is shown, is the chosen one.
std::vector<RingMark> MarksOfWeek(const RingTable& table, int terminal, int shown_day,
                                  int entered_ring);

/// The lines of ListaSuonerie, a mark for each of their days. Without a relay a ring does not
/// sound; those of relay B are hollow.
std::vector<RingMark> MarksOfLines(const QStringList& lines, int chosen_line);

}  // namespace orlo
