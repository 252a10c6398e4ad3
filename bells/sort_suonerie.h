#pragma once

#include "registry/ring_table.h"

namespace orlo
{

/// Puts the rings of each day of a terminal 1..32 in the order of their times, the empty slots
/// behind them. Rings of one time keep their order.
void SortSuonerie(RingTable& table, int terminal);

}  // namespace orlo
