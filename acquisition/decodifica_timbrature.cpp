#include "acquisition/decodifica_timbrature.h"

#include "acquisition/output_lines.h"
#include "acquisition/punch_record.h"
#include "registry/terminal_type.h"

#include <vector>

namespace orlo
{

namespace
{

constexpr int kStandard = 0;
constexpr int kExtended = 1;

std::vector<std::string_view> SplitRecords(std::string_view answer)
{
    std::vector<std::string_view> records;
    for (std::size_t start = 0; start < answer.size(); start += kPunchRecordLength) {
        const std::string_view piece = answer.substr(start, kPunchRecordLength);
        if (piece == kEndMark) break;
        records.push_back(piece);
    }
    return records;
}

PunchLine LineOf(const PunchRecord& punch, char code)
{
    return {punch.date, punch.time, std::string(1, code), punch.badge, punch.cause, punch.terminal};
}

}  // namespace

DecodedAnswer DecodificaTimbrature(std::string_view answer, const OutputRules& rules)
{
    const std::vector<std::string_view> records = SplitRecords(answer);
    DecodedAnswer decoded;
    decoded.records = static_cast<int>(records.size());
    decoded.too_many_records = decoded.records > kMostRecordsInAnswer;
    if (decoded.too_many_records) return decoded;

    // In the extended layout a record of code "0" builds no line of its own: the line of the record
    // before it in this answer is written again, an empty one if it is the first. Payroll counts on
    // one line for each record.
    std::string line;
    for (const std::string_view record : records) {
        const PunchRecord punch = CutPunchRecord(record);
        const char code = DirectionCode(rules.type_code, punch.event);
        if (rules.tipo_tracciato == kStandard)
            line = ComponeRigaStandard(LineOf(punch, code));
        else if (rules.tipo_tracciato == kExtended && code != '0')
            line = ComponeRigaEstesa(LineOf(punch, code), rules.codice_azienda);
        decoded.lines += line + "\r\n";
    }
    decoded.last_record_cut_short = !records.empty() && records.back().size() < kPunchRecordLength;
    return decoded;
}

}  // namespace orlo
