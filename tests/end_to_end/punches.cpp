#include "tests/end_to_end/punches.h"

namespace orlo::end_to_end
{

namespace
{

constexpr std::size_t kPunchesPerAnswer = 10;

std::string Digits(std::size_t value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    return std::string(width - digits.size(), '0') + digits;
}

bool Holds(std::string_view events, char event)
{
    return events.find(event) != std::string_view::npos;
}

}  // namespace

std::vector<Punch> VariedPunches(std::size_t count)
{
    constexpr std::string_view kEvents = "9185:2<405";
    const std::vector<std::string> years = {"1981", "1999", "2000", "2006", "2080"};
    std::vector<Punch> punches;
    for (std::size_t i = 0; i < count; ++i) {
        // Shifted by one with each round, so that every event comes to stand first in an answer.
        const char event = kEvents[(i + i / kEvents.size()) % kEvents.size()];
        punches.push_back({event, Digits(100000 + i, 6), Digits(i % 100 * 101, 4),
                           Digits(1 + i % 28, 2), Digits(1 + i % 12, 2), years[i % years.size()],
                           Digits(i % 24, 2), Digits(i % 60, 2)});
    }
    return punches;
}

std::string PunchSource(const std::vector<Punch>& punches)
{
    std::string text;
    for (const Punch& punch : punches)
        text += std::string(1, punch.event) + " " + punch.badge + " " + punch.cause + " " +
                punch.day + "/" + punch.month + "/" + punch.year + " " + punch.hour + ":" +
                punch.minute + "\n";
    return text;
}

Lines StandardLines(const std::vector<Punch>& punches, int terminal, std::string_view entries,
                    std::string_view exits)
{
    Lines lines;
    for (const Punch& punch : punches) {
        const char* const direction = Holds(entries, punch.event) ? "1"
                                      : Holds(exits, punch.event) ? "2"
                                                                  : "0";
        lines.push_back("31" + punch.year + punch.month + punch.day + punch.hour + punch.minute +
                        "000" + direction + "0000" + punch.badge + punch.cause.substr(2) +
                        Digits(static_cast<std::size_t>(terminal), 2));
    }
    return lines;
}

Lines ExtendedLines(const std::vector<Punch>& punches, int terminal, std::string_view entries,
                    std::string_view exits)
{
    const std::string number = Digits(static_cast<std::size_t>(terminal), 2);
    Lines lines;
    for (std::size_t i = 0; i < punches.size(); ++i) {
        const Punch& punch = punches[i];
        const bool entry = Holds(entries, punch.event);
        if (entry || Holds(exits, punch.event)) {
            const std::string line = "    0" + number + " AZ   " + punch.badge +
                                     (entry ? "0" : "1") + " " + punch.cause.substr(1) + punch.day +
                                     punch.month + punch.year + punch.hour + punch.minute;
            lines.push_back(line + std::string(258 - line.size(), ' '));
        } else {
            lines.push_back(i % kPunchesPerAnswer == 0 ? "" : lines.back());
        }
    }
    return lines;
}

}  // namespace orlo::end_to_end
