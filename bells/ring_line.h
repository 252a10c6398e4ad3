#pragma once

#include "bells/suonerie.h"

namespace orlo
{

// A line of ListaSuonerie. Columns counted from 1; sending reads the fields back by their columns.
//
//   columns  content
//   1-2      position 01..32
//   6-7      hour
//   8        ":"
//   9-10     minute
//   16-17    duration
//   23-37    the eight day flags, a blank between each two
//   42       relay A, "1" or "0"
//   44       relay B
//
// All other columns are blanks.

inline constexpr int kRingPositions = 32;

/// A number of a line. One that two digits cannot hold is shown as the nearest that they can: the
/// columns behind it must stay where they are.
QString TwoDigits(std::int32_t number);

/// The line of a row.
QString RingLine(const BellRow& row);

/// The line of a position that has no ring.
QString EmptyRingLine(int position);

/// The fields of a line, `Terminale` apart. Both relay flags at 1 are relay A.
BellRow CutRingLine(const QString& line);

/// The lines of the 32 positions, each once: those of the rows in their order, the unused positions
/// behind them. A row of a position that was there before it, or that is none, has no line.
QStringList RingLines(const std::vector<BellRow>& rows);

}  // namespace orlo
