#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// "15/03/2006".
std::string DateText(std::chrono::local_seconds moment);

/// "08:30:00".
std::string TimeText(std::chrono::local_seconds moment);

/// The day of "dd/mm/yyyy", the year of four digits; nothing when the calendar has no such day.
std::optional<std::chrono::local_days> DateOf(std::string_view text);

/// The time of day of "hh:mm" or "hh:mm:ss".
std::optional<std::chrono::seconds> TimeOf(std::string_view text);

}  // namespace orlo::simulator
