#pragma once

#include <chrono>
#include <span>
#include <string>

namespace orlo::simulator
{

/// One passage at a terminal.
struct Punch {
    char event = '9';
    std::string badge;  // 6 digits
    std::string cause;  // 4 digits
    std::chrono::local_seconds at{};
};

/// The punch as it goes over the line, 26 characters.
std::string PunchRecord(const Punch& punch, int terminal);

/// Length of a record on the line.
inline constexpr std::size_t kRecordLength = 26;

/// What stands behind the last record of an answer, and alone when there is none.
inline constexpr char kEndOfRecords[] = "END";

/// Records one after another, then the end mark.
std::string PunchAnswer(std::span<const Punch> punches, int terminal);

}  // namespace orlo::simulator
