#include "simulator/terminal.h"

#include "simulator/digits.h"
#include "simulator/memory_status.h"

#include <optional>
#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kCodeLength = 2;
constexpr std::size_t kParameterDigits = 4;

Reply Done(std::string deed)
{
    return {"OK", std::move(deed)};
}

Reply Refused(std::string reason)
{
    return {"ERRORE", std::move(reason)};
}

Reply Unknown()
{
    return {"COMANDO SCONOSCIUTO", "comando sconosciuto"};
}

std::optional<int> ParameterCode(std::string_view text)
{
    return text.size() == kParameterDigits ? NumberOf(text) : std::nullopt;
}

}  // namespace

Terminal::Terminal(TerminalSettings settings, LocalClock machine)
    : settings_(std::move(settings)),
      punches_(settings_.punches, settings_.acquired),
      clock_(std::move(machine), settings_.clock_offset),
      badge_(settings_.model->first_badge_code, settings_.badge),
      bells_(settings_.model->bell_layout)
{
}

Reply Terminal::Answer(std::string_view command, std::size_t most_records)
{
    const std::string_view code = command.substr(0, kCodeLength);
    const std::string_view rest = command.substr(code.size());
    if (command == "03") return ReadClock();
    if (command == "32") return Status();
    if (command == "33OK" || command == "33NO")
        return Transfer(/*acknowledged=*/command == "33OK", most_records);
    if (command == "14CLEAR") return ClearBells();
    if (command == "97STORE") return StoreBadge();
    if (code == "01") return SetClock(rest);
    if (code == "13") return Ring(rest);
    if (code == "30") return MonitorBlock(rest);
    if (code == "94") return WriteBadge(rest);
    if (code == "95") return ReadBadge(rest);
    return Unknown();
}

std::string Terminal::Obey(std::string_view command)
{
    if (command.starts_with("33")) return "a tutti: trasferimento ignorato";
    return "a tutti: " + Answer(command).deed;
}

Reply Terminal::ReadClock() const
{
    return {ClockAnswer(Model().clock_layout, clock_.Now(), settings_.release), "data e ora"};
}

Reply Terminal::SetClock(std::string_view fields)
{
    return clock_.Set(fields) ? Done("orologio regolato") : Refused("data o ora errata");
}

Reply Terminal::Ring(std::string_view text)
{
    const std::optional<int> position = bells_.Put(text);
    return position ? Done("suoneria " + std::to_string(*position)) : Refused("suoneria errata");
}

Reply Terminal::ClearBells()
{
    bells_.Clear();
    return Done("suonerie azzerate");
}

Reply Terminal::MonitorBlock(std::string_view index) const
{
    const std::size_t first = index.find_first_not_of(' ');
    if (first == std::string_view::npos) return Refused("manca il blocco");
    const std::optional<int> block = NumberOf(index.substr(first));
    if (!block) return Refused("blocco errato");
    const std::vector<Punch> punches = punches_.Block(static_cast<std::size_t>(*block));
    return {PunchAnswer(punches, Number()),
            "blocco " + std::to_string(*block) + ", timbrature " + std::to_string(punches.size())};
}

Reply Terminal::Status() const
{
    return {MemoryStatus(Model().counting, punches_), "stato della memoria"};
}

Reply Terminal::Transfer(bool acknowledged, std::size_t most_records)
{
    if (acknowledged) punches_.Acknowledge();
    const std::span<const Punch> punches = punches_.HandOver(most_records);
    return {PunchAnswer(punches, Number()), "acquisite " + std::to_string(punches_.Acquired()) +
                                                ", consegnate " + std::to_string(punches.size())};
}

Reply Terminal::WriteBadge(std::string_view parameter)
{
    const std::optional<int> code = ParameterCode(parameter.substr(0, kParameterDigits));
    const std::string_view value = parameter.substr(std::min(parameter.size(), kParameterDigits));
    const bool written = code && value.starts_with(' ') && badge_.Write(*code, value.substr(1));
    return written ? Done("parametro " + std::to_string(*code) + " in attesa")
                   : Refused("parametro rifiutato");
}

Reply Terminal::ReadBadge(std::string_view parameter) const
{
    const std::optional<int> code = ParameterCode(parameter);
    const std::optional<std::string> value = code ? badge_.Read(*code) : std::nullopt;
    return value ? Reply{*value, "parametro " + std::to_string(*code)}
                 : Refused("parametro sconosciuto");
}

Reply Terminal::StoreBadge()
{
    badge_.Store();
    return Done("formato badge memorizzato");
}

}  // namespace orlo::simulator
