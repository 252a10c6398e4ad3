#include "simulator/punch_source.h"

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

local_days ParseDate(const std::string& text)
{
    const std::vector<std::string> parts = Split(text, '/');
    if (parts.size() == 3 && parts[2].size() == 4) {
        const int day = NumberOf(parts[0]).value_or(0);
        const int month = NumberOf(parts[1]).value_or(0);
        const int year = NumberOf(parts[2]).value_or(0);
        const std::chrono::year_month_day date(std::chrono::year(year),
                                               std::chrono::month(static_cast<unsigned>(month)),
                                               std::chrono::day(static_cast<unsigned>(day)));
        if (date.ok() && year >= 1981 && year <= 2080) return local_days(date);
    }
    Refuse("data non valida: " + text);
}

std::chrono::seconds ParseTime(const std::string& text)
{
    std::vector<std::string> parts = Split(text, ':');
    if (parts.size() == 2) parts.emplace_back("00");
    if (parts.size() == 3) {
        const int hour = NumberOf(parts[0]).value_or(99);
        const int minute = NumberOf(parts[1]).value_or(99);
        const int second = NumberOf(parts[2]).value_or(99);
        if (hour < 24 && minute < 60 && second < 60)
            return std::chrono::hours(hour) + std::chrono::minutes(minute) +
                   std::chrono::seconds(second);
    }
    Refuse("ora non valida: " + text);
}

}  // namespace

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
            ParseDate(date) + ParseTime(time)};
}

std::vector<Punch> ReadPunches(std::istream& lines)
{
    std::vector<Punch> punches;
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') continue;
        try {
            punches.push_back(ParsePunch(line));
        } catch (const UsageError& error) {
            throw UsageError("riga " + std::to_string(number) + ", " + error.what());
        }
    }
    return punches;
}

}  // namespace orlo::simulator
