#include "acquisition/monitor_blocks.h"

#include "acquisition/memory_counters.h"
#include "acquisition/punch_record.h"

namespace orlo
{

int LastMonitorBlock(const std::string& TPnt)
{
    return CounterValue(TPnt) / kPunchesInBlock + 1;
}

std::string MonitorRequest(int block)
{
    return "30" + std::to_string(block);
}

bool IsEndOfMemory(std::string_view answer)
{
    return answer.starts_with(kEndMark);
}

int PunchesRead(int block, std::string_view answer)
{
    return static_cast<int>(answer.size() / kPunchRecordLength) + kPunchesInBlock * block;
}

}  // namespace orlo
