#include "simulator/state_report.h"

#include "simulator/digits.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace orlo::simulator
{

namespace
{

std::string BadgeText(const BadgeLayout& badge)
{
    return std::to_string(badge.plant_start) + "/" + std::to_string(badge.plant_length) + "/" +
           std::to_string(badge.badge_start) + "/" + std::to_string(badge.badge_length) + "/" +
           badge.plant_code;
}

std::string BellText(const Bell& bell)
{
    return Digits(bell.hour, 2) + ":" + Digits(bell.minute, 2) + " " + bell.days + " " +
           std::to_string(bell.relay) + " " + std::to_string(bell.duration);
}

/// Lines "number.key=value" of one terminal.
class Lines
{
public:
    explicit Lines(int number) : prefix_(std::to_string(number) + ".") {}

    void operator()(const std::string& key, const std::string& value)
    {
        text_ += prefix_ + key + "=" + value + "\n";
    }
    const std::string& Text() const { return text_; }

private:
    std::string prefix_;
    std::string text_;
};

std::string TerminalReport(const Terminal& terminal)
{
    Lines line(terminal.Number());
    line("modello", std::string(terminal.Model().name));
    line("timbrature", std::to_string(terminal.Punches().Held()));
    line("acquisite", std::to_string(terminal.Punches().Acquired()));
    line("da_acquisire", std::to_string(terminal.Punches().ToAcquire()));
    line("scarto", std::to_string(terminal.Clock().Offset().count()));
    line("orologio", terminal.Clock().LastSetting());
    line("badge", BadgeText(terminal.Badge().Stored()));
    for (const auto& [position, bell] : terminal.Bells().Rings())
        line("suoneria_" + Digits(position, 2), BellText(bell));
    return line.Text();
}

std::string LayoutText(const ObjectLayout& layout)
{
    std::string text;
    for (const std::string& part : LayoutTexts(layout)) text += (text.empty() ? "" : "/") + part;
    return text;
}

void WeekLines(Lines& line, const ObjectWeek& week)
{
    for (int day = 0; day < kDays; ++day)
        for (int number = 1; number <= kRingsADay; ++number) {
            const ObjectRing& ring = week.Ring(day, number);
            if (ring.duration == 0) continue;
            line("suoneria_" + std::to_string(day) + "_" + Digits(number, 2),
                 Digits(ring.hour, 2) + ":" + Digits(ring.minute, 2) + " " +
                     std::to_string(ring.duration));
        }
}

std::string TerminalReport(const ObjectTerminal& terminal)
{
    const ObjectRecords& records = terminal.Records();
    Lines line(terminal.Number());
    line("modello", terminal.Model());
    line("timbrature", std::to_string(records.Held()));
    line("acquisite", std::to_string(records.Marked()));
    line("da_acquisire", std::to_string(records.Held() - records.Marked()));
    line("scarto", std::to_string(terminal.Clock().Offset().count()));
    line("formato", LayoutText(terminal.Layout()));
    WeekLines(line, terminal.Week());
    return line.Text();
}

}  // namespace

std::string StateReport(std::span<const ObjectTerminal> terminals)
{
    std::string report;
    for (const ObjectTerminal& terminal : terminals) report += TerminalReport(terminal);
    return report;
}

std::string StateReport(std::span<const Terminal> terminals)
{
    std::string report;
    for (const Terminal& terminal : terminals) report += TerminalReport(terminal);
    return report;
}

void WriteStateReport(const std::string& path, const std::string& report)
{
    const std::string unfinished = path + ".tmp";
    std::ofstream file(unfinished, std::ios::trunc);
    file << report;
    file.close();
    if (!file) throw std::system_error(errno, std::generic_category(), unfinished);
    std::filesystem::rename(unfinished, path);
}

}  // namespace orlo::simulator
