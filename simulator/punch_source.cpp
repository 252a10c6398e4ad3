#include "simulator/punch_source.h"

#include "simulator/date_text.h"
#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <optional>
#include <random>
#include <sstream>
#include <string>

namespace orlo::simulator
{

namespace
{

using std::chrono::local_days;
using std::chrono::local_seconds;

// Monday 2 January 2006, 06:00.
constexpr local_seconds kFirstPunch =
    local_days(std::chrono::year(2006) / std::chrono::January / 2) + std::chrono::hours(6);

// The century does not travel on the line.
constexpr local_days kFirstDay(std::chrono::year(1981) / std::chrono::January / 1);
constexpr local_days kLastDay(std::chrono::year(2080) / std::chrono::December / 31);

[[noreturn]] void Refuse(const std::string& reason)
{
    throw UsageError("timbratura: " + reason);
}

std::string ZeroFilled(const std::string& digits, int width, const char* name)
{
    const std::optional<int> number = NumberOf(digits);
    if (!number || digits.size() > static_cast<std::size_t>(width))
        Refuse(std::string(name) + " non valido: " + digits);
    return Digits(*number, width);
}

}  // namespace

local_seconds ParsePunchTime(const std::string& date, const std::string& time)
{
    const std::optional<local_days> day = DateOf(date);
    const bool in_reach = day && *day >= kFirstDay && *day <= kLastDay;
    if (!in_reach) Refuse("data non valida: " + date);
    const std::optional<std::chrono::seconds> time_of_day = TimeOf(time);
    if (!time_of_day) Refuse("ora non valida: " + time);
    return *day + *time_of_day;
}

std::vector<Punch> InventPunches(std::size_t count, std::uint32_t seed, const TerminalModel& model)
{
    const std::string events =
        std::string(model.entry_events) + std::string(model.exit_events) + model.other_event;
    // The distributions of the standard library differ between its makers, the engine does not.
    std::mt19937 engine(seed);
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(engine() % limit); };

    std::vector<Punch> punches;
    punches.reserve(count);
    local_seconds at = kFirstPunch;
    while (punches.size() < count) {
        at += std::chrono::seconds(1 + below(1200));
        const char event = events[below(static_cast<unsigned>(events.size()))];
        const std::string badge = Digits(1 + below(999999), 6);
        punches.push_back({event, badge, Digits(below(100), 4), at});
    }
    return punches;
}

Punch ParsePunch(std::string_view line)
{
    std::istringstream words{std::string(line)};
    std::string event, badge, cause, date, time, surplus;
    words >> event >> badge >> cause >> date >> time;
    if (!words || words >> surplus) Refuse("servono evento, badge, causale, data e ora");
    if (event.size() != 1) Refuse("l'evento è un solo carattere: " + event);
    return {event.front(), ZeroFilled(badge, 6, "badge"), ZeroFilled(cause, 4, "causale"),
            ParsePunchTime(date, time)};
}

void ForEachPunchLine(std::istream& lines, const std::function<void(const std::string&)>& parse)
{
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') continue;
        try {
            parse(line);
        } catch (const UsageError& error) {
            throw UsageError("riga " + std::to_string(number) + ", " + error.what());
        }
    }
}

std::vector<Punch> ReadPunches(std::istream& lines)
{
    std::vector<Punch> punches;
    ForEachPunchLine(lines, [&](const std::string& line) { punches.push_back(ParsePunch(line)); });
    return punches;
}

}  // namespace orlo::simulator
