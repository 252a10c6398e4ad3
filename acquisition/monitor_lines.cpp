#include "acquisition/monitor_lines.h"

#include "acquisition/memory_counters.h"
#include "acquisition/punch_record.h"
#include "link/fields.h"

#include <algorithm>

namespace orlo
{

namespace
{

std::string RunningNumber(int number)
{
    const std::string digits = std::to_string(number);
    constexpr std::size_t kWidth = 4;
    return std::string(kWidth - std::min(kWidth, digits.size()), '0') + digits;
}

/// Puts `text` at a column counted from 1, or behind what stands there already and one blank.
void PutAt(std::string& line, std::size_t column, std::string_view text)
{
    if (text.empty()) return;
    line.resize(std::max(column - 1, line.size() + 1), ' ');
    line += text;
}

std::string TypeName(char direction_code)
{
    if (direction_code == '1') return "Entrata";
    return direction_code == '2' ? "Uscita" : "";
}

MonitorPunch PunchOf(std::string_view record, int number, const MonitorRules& rules)
{
    const PunchRecord punch = CutPunchRecord(record);
    const bool to_acquire = rules.to_acquire >= number;
    return {.number = number,
            .badge = punch.badge,
            .date = Field(punch.date, 7, 2) + "/" + Field(punch.date, 5, 2) + "/" +
                    Field(punch.date, 1, 4),
            .time = Field(punch.time, 1, 2) + ":" + Field(punch.time, 3, 2),
            .type = TypeName(DirectionCode(rules.type_code, punch.event)),
            .cause = punch.cause,
            .terminal = {},
            .state = to_acquire ? kSerialStates[0] : kSerialStates[1],
            .to_acquire = to_acquire};
}

}  // namespace

std::string ComponeRigaMonitor(const MonitorPunch& punch)
{
    std::string line = RunningNumber(punch.number);
    PutAt(line, 9, punch.badge);
    PutAt(line, 17, punch.date);
    PutAt(line, 31, punch.time);
    PutAt(line, 41, punch.type);
    PutAt(line, 54, punch.cause);
    PutAt(line, 63, punch.state);
    if (!punch.terminal.empty()) PutAt(line, 77, "Term. " + punch.terminal);
    return line;
}

MonitorRules MonitorRulesFor(int type_code, MemoryCounting counting, const std::string& TPnt,
                             const std::string& TpntOld)
{
    return {.type_code = type_code,
            .to_acquire = PunchesInMemory(counting, TPnt) - CounterValue(TpntOld)};
}

std::vector<MonitorPunch> DecodeMonitorAnswer(std::string_view answer, int first,
                                              const MonitorRules& rules)
{
    std::vector<MonitorPunch> punches;
    while (answer.size() >= kPunchRecordLength && !answer.starts_with(kEndMark)) {
        const int number = first + static_cast<int>(punches.size());
        punches.push_back(PunchOf(answer.substr(0, kPunchRecordLength), number, rules));
        answer.remove_prefix(kPunchRecordLength);
    }
    return punches;
}

MonitorPunch MonitorPunchOf(int number, const ObjectRecord& record, const std::string& cause)
{
    const bool information = record.Direction == "Info";
    return {.number = number,
            .badge = record.IdNumber,
            .date = record.Date,
            .time = record.Time,
            .type = information ? "Info " + std::to_string(record.PersonalCause) : record.Direction,
            .cause = cause,
            .terminal = record.TerminalNo,
            .state = record.Deleted ? kObjectStates[1] : kObjectStates[0],
            .to_acquire = !record.Deleted};
}

}  // namespace orlo
