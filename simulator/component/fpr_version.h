#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

namespace orlo::simulator
{

class FPrVersion : public component::FPrVersion
{
public:
    explicit FPrVersion(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line)) {}

    bool Receive(std::int16_t& terminal, std::int16_t& priority) override;
    std::string LastBuild() override { return last_build_; }
    std::string ReceivedCommand() override { return transfer_.Code(); }

private:
    Transfer transfer_;
    std::string last_build_;
};

}  // namespace orlo::simulator
