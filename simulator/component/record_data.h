#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

namespace orlo::simulator
{

class RecordData : public component::RecordData
{
public:
    explicit RecordData(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line)) {}

    bool GetRecordsInfo(std::int16_t& terminal, std::int16_t& priority) override;
    std::int32_t MaxRecords() override { return max_records_; }
    std::int32_t FreeRecords() override { return free_records_; }
    std::int32_t TrasmittedRecords() override { return trasmitted_records_; }

    bool GetNumber(std::int16_t& terminal, std::int16_t& priority) override;
    std::int32_t Records() override { return records_; }

    bool GetFirstRecord(std::int16_t& terminal, std::int16_t& priority2) override;
    bool GetNextRecord(std::int16_t& terminal, const std::string& priority) override;
    bool GetRecord(std::int16_t& terminal, std::int16_t& priority2, std::int16_t& number) override;
    bool SetAsDeleted() override;

    std::string TerminalNo() override { return current_.terminal_no; }
    std::string IdNumber() override { return current_.id_number; }
    std::string Date() override { return current_.date; }
    std::string Time() override { return current_.time; }
    std::string Type() override { return current_.type; }
    std::string Direction() override { return current_.direction; }
    std::string Cause() override { return current_.cause; }
    std::int32_t PersonalCause() override { return current_.personal_cause; }
    bool Deleted() override { return current_.deleted; }

    std::string ReceivedCommand() override { return transfer_.Code(); }

private:
    struct Record {
        std::string number;  // in the terminal; empty: there is no current record
        std::string terminal_no, id_number, date, time, type, direction, cause;
        std::int32_t personal_cause = 0;
        bool deleted = false;
    };

    bool Next(std::int16_t terminal, std::int16_t priority);
    bool Fetch(std::int16_t terminal, std::int16_t priority, std::vector<std::string> fields);

    Transfer transfer_;
    std::int32_t max_records_ = 0;
    std::int32_t free_records_ = 0;
    std::int32_t trasmitted_records_ = 0;
    std::int32_t records_ = 0;

    Record current_;
    std::int16_t terminal_ = 0;  // the current record's
    std::int16_t priority_ = 0;
    int next_ = 1;  // where GetNextRecord looks on
};

}  // namespace orlo::simulator
