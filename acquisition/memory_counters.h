#pragma once

#include "registry/terminal_type.h"

#include <string>
#include <string_view>

namespace orlo
{

// The answer to "32" holds four labels, each followed by five digits:
//
//   label         digits begin, counted from the label's first character
//   "TPnt "       5    (the separating blank is part of the label)
//   "TrInMemory"  11
//   "TpntOld"     8
//   "TpntNew"     8

/// Counters of a terminal's punch memory, five characters each as answered.
struct MemoryCounters {
    std::string TPnt;        ///< punch pointer
    std::string TrInMemory;  ///< punches still to be acquired
    std::string TpntOld;     ///< pointer to the oldest punch held
    std::string TpntNew;     ///< pointer to the newest punch held
};

/// Cuts the counters out of an answer. A label that is missing counts as found at position 0,
/// before the first character: the five characters at the label's distance are taken all the same.
MemoryCounters CutMemoryCounters(std::string_view answer);

/// True for an answer that says how many punches are to be acquired, in digits. Answers carry
/// nothing that tells which request they belong to; a late one is known by what it says.
bool IsMemoryStatus(std::string_view answer);

/// Number of punches that the memory holds.
int PunchesInMemory(MemoryCounting counting, const std::string& TPnt);

/// `TrInMemory` as the model means it: where the count is one too high it is written back one
/// lower, in five digits, unless it is 0. What is written back drives the acquisition.
std::string CorrectedTrInMemory(MemoryCounting counting, const std::string& TrInMemory);

/// The value of a counter; text that begins with no digit counts as 0.
int CounterValue(const std::string& counter);

}  // namespace orlo
