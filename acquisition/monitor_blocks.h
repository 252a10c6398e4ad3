#pragma once

#include <string>
#include <string_view>

namespace orlo
{

// The monitor reads the memory in blocks of ten punches, the newest first:
//
//   request   "30" and the index of the block, from 0, without blanks or zeros before it
//   answer    up to ten punch records, then "END"; "END" alone behind the last punch

inline constexpr int kPunchesInBlock = 10;

/// The last block that is asked for: one more than the pointer's tenth, and asked for itself, so
/// that pointer 00041 reads blocks 0 to 5. The terminal ends the reading with its "END".
int LastMonitorBlock(const std::string& TPnt);

std::string MonitorRequest(int block);

/// True for the answer to a block behind the last punch.
bool IsEndOfMemory(std::string_view answer);

/// Punches read so far when that was the answer to `block`.
int PunchesRead(int block, std::string_view answer);

}  // namespace orlo
