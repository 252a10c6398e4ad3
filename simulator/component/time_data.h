#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

namespace orlo::simulator
{

class TimeData : public component::TimeData
{
public:
    explicit TimeData(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line)) {}

    bool Receive(std::int16_t& terminal, std::int16_t& priority) override;
    bool Send(std::int16_t& terminal, std::int16_t& priority) override;
    void GetSystem() override;
    std::string Time() override { return time_; }
    std::string Date() override { return date_; }
    std::string ReceivedCommand() override { return transfer_.Code(); }

private:
    Transfer transfer_;
    std::string date_;  // dd/mm/yyyy
    std::string time_;  // hh:mm:ss
};

}  // namespace orlo::simulator
