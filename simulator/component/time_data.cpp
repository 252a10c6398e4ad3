#include "simulator/component/time_data.h"

#include "simulator/object_requests.h"

#include <array>
#include <ctime>

namespace orlo::simulator
{

bool TimeData::Receive(std::int16_t& terminal, std::int16_t& priority)
{
    if (!transfer_.Ask(terminal, priority, {request::kReadClock}, 2)) return false;
    date_ = transfer_.Data()[0];
    time_ = transfer_.Data()[1];
    return true;
}

bool TimeData::Send(std::int16_t& terminal, std::int16_t& priority)
{
    return transfer_.Ask(terminal, priority, {request::kSetClock, date_, time_}, 0);
}

void TimeData::GetSystem()
{
    const std::time_t now = std::time(nullptr);
    std::tm moment{};
    localtime_r(&now, &moment);
    std::array<char, 32> text{};
    date_.assign(text.data(), std::strftime(text.data(), text.size(), "%d/%m/%Y", &moment));
    time_.assign(text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", &moment));
}

}  // namespace orlo::simulator
