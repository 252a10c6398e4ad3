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

std::string TerminalReport(const Terminal& terminal)
{
    const std::string prefix = std::to_string(terminal.Number()) + ".";
    std::string report;
    const auto line = [&](const std::string& key, const std::string& value) {
        report += prefix + key + "=" + value + "\n";
    };
    line("modello", std::string(terminal.Model().name));
    line("timbrature", std::to_string(terminal.Punches().Held()));
    line("acquisite", std::to_string(terminal.Punches().Acquired()));
    line("da_acquisire", std::to_string(terminal.Punches().ToAcquire()));
    line("scarto", std::to_string(terminal.Clock().Offset().count()));
    line("orologio", terminal.Clock().LastSetting());
    line("badge", BadgeText(terminal.Badge().Stored()));
    for (const auto& [position, bell] : terminal.Bells().Rings())
        line("suoneria_" + Digits(position, 2), BellText(bell));
    return report;
}

}  // namespace

std::string StateReport(std::span<const Terminal> terminals)
{
    std::string report;
    for (const Terminal& terminal : terminals) report += TerminalReport(terminal);
    return report;
}

void WriteStateReport(const std::string& path, std::span<const Terminal> terminals)
{
    const std::string unfinished = path + ".tmp";
    std::ofstream file(unfinished, std::ios::trunc);
    file << StateReport(terminals);
    file.close();
    if (!file) throw std::system_error(errno, std::generic_category(), unfinished);
    std::filesystem::rename(unfinished, path);
}

}  // namespace orlo::simulator
