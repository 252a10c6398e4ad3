#include "simulator/component/record_data.h"

#include "simulator/object_requests.h"

#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kStatusData = 3;
constexpr std::size_t kRecordData = 10;

}  // namespace

bool RecordData::GetRecordsInfo(std::int16_t& terminal, std::int16_t& priority)
{
    if (!transfer_.Ask(terminal, priority, {request::kStatus}, kStatusData)) return false;
    const std::vector<std::string>& data = transfer_.Data();
    max_records_ = NumberIn(data[0]);
    free_records_ = NumberIn(data[1]);
    trasmitted_records_ = NumberIn(data[2]);
    next_ = 1;
    return true;
}

bool RecordData::GetNumber(std::int16_t& terminal, std::int16_t& priority)
{
    if (!transfer_.Ask(terminal, priority, {request::kCount}, 1)) return false;
    records_ = NumberIn(transfer_.Data().front());
    return true;
}

bool RecordData::GetFirstRecord(std::int16_t& terminal, std::int16_t& priority2)
{
    next_ = 1;
    return Next(terminal, priority2);
}

bool RecordData::GetNextRecord(std::int16_t& terminal, const std::string& priority)
{
    return Next(terminal, static_cast<std::int16_t>(NumberIn(priority)));
}

bool RecordData::Next(std::int16_t terminal, std::int16_t priority)
{
    if (Fetch(terminal, priority, {request::kNextRecord, std::to_string(next_)})) {
        next_ = NumberIn(current_.number) + 1;
        return true;
    }
    if (transfer_.Code() == request::kNoRecord) next_ = 1;
    return false;
}

bool RecordData::GetRecord(std::int16_t& terminal, std::int16_t& priority2, std::int16_t& number)
{
    return Fetch(terminal, priority2, {request::kRecord, std::to_string(number)});
}

bool RecordData::Fetch(std::int16_t terminal, std::int16_t priority,
                       std::vector<std::string> fields)
{
    current_ = {};
    if (!transfer_.Ask(terminal, priority, std::move(fields), kRecordData)) return false;
    const std::vector<std::string>& data = transfer_.Data();
    current_ = {data[0], data[1], data[2], data[3],           data[4],
                data[5], data[6], data[7], NumberIn(data[8]), data[9] == "1"};
    terminal_ = terminal;
    priority_ = priority;
    return true;
}

bool RecordData::SetAsDeleted()
{
    if (current_.number.empty()) return transfer_.Fail("96,Nessun record corrente");
    if (!transfer_.Ask(terminal_, priority_, {request::kMark, current_.number}, 0)) return false;
    current_.deleted = true;
    return true;
}

}  // namespace orlo::simulator
