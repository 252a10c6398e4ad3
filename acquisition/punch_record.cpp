#include "acquisition/punch_record.h"

#include "acquisition/memory_counters.h"
#include "link/fields.h"

namespace orlo
{

namespace
{

constexpr int kLastYearOfNextCentury = 80;

}  // namespace

PunchRecord CutPunchRecord(std::string_view record)
{
    const std::string day = Field(record, 19, 2);
    const std::string month = Field(record, 21, 2);
    const std::string year = Field(record, 23, 2);
    return {.event = record.empty() ? ' ' : record.front(),
            .date = CenturyOf(year) + year + month + day,
            .time = Field(record, 13, 2) + Field(record, 15, 2),
            .badge = Field(record, 3, 6),
            .cause = Field(record, 9, 4),
            .terminal = Field(record, 25, 2)};
}

std::string CenturyOf(std::string_view two_digit_year)
{
    return CounterValue(std::string(two_digit_year)) > kLastYearOfNextCentury ? "19" : "20";
}

}  // namespace orlo
