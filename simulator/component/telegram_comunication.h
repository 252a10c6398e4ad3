#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

namespace orlo::simulator
{

class TelegramComunication : public component::TelegramComunication
{
public:
    explicit TelegramComunication(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line))
    {
    }

    void OpenComunication(std::int16_t& port, std::int32_t& speed) override;
    void endcomunication() override;
    void DTR(bool raised) override;
    void SendString(const std::string& text) override;
    std::string ReceiveString(std::int32_t longest, bool at_once, const char* terminator) override;
    bool SendTelegram(std::int16_t& terminal, std::int16_t& priority, std::string& command,
                      std::string& answer) override;
    std::string ReceivedData() override;
    std::string ReceivedCommand() override { return transfer_.Code(); }

private:
    Transfer transfer_;
};

}  // namespace orlo::simulator
