#include "simulator/component/telegram_comunication.h"

#include "simulator/object_requests.h"

#include <algorithm>

namespace orlo::simulator
{

void TelegramComunication::OpenComunication(std::int16_t& port, std::int32_t& speed)
{
    transfer_.Line().Open(port, speed);
}

void TelegramComunication::endcomunication()
{
    transfer_.Line().Close();
}

void TelegramComunication::DTR(bool raised)
{
    transfer_.Line().SetDtr(raised);
}

void TelegramComunication::SendString(const std::string& text)
{
    transfer_.Line().SendString(text);
}

std::string TelegramComunication::ReceiveString(std::int32_t longest, bool at_once,
                                                const char* terminator)
{
    const std::chrono::milliseconds patience(at_once ? 10 : 1000);
    return transfer_.Line().ReceiveString(static_cast<std::size_t>(std::max(longest, 0)), patience,
                                          terminator == nullptr ? '\0' : *terminator);
}

bool TelegramComunication::SendTelegram(std::int16_t& terminal, std::int16_t& priority,
                                        std::string& command, std::string& answer)
{
    const bool acknowledged =
        transfer_.Ask(terminal, priority, {request::kTelegram, command, answer}, 1);
    if (acknowledged) answer = transfer_.Data().front();
    return acknowledged;
}

std::string TelegramComunication::ReceivedData()
{
    return transfer_.Data().empty() ? std::string() : transfer_.Data().front();
}

}  // namespace orlo::simulator
