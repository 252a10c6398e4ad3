#include "simulator/terminal_settings.h"

#include "simulator/digits.h"
#include "simulator/punch_settings.h"
#include "simulator/punch_source.h"
#include "simulator/setting_pairs.h"

#include <optional>

namespace orlo::simulator
{

namespace
{

constexpr int kMostRecords = 12;
constexpr int kMostPunches = 99999;  // what five digits of the status can say

const TerminalModel* TakeModel(SettingPairs& pairs)
{
    const std::optional<std::string> name = pairs.Text("modello");
    if (!name) RefuseTerminal("manca modello");
    const TerminalModel* model = FindModel(*name);
    if (model == nullptr) RefuseTerminal("modello sconosciuto: " + *name);
    return model;
}

// Start and length of the plant code, start and length of the badge number, plant code.
BadgeLayout ParseBadge(const std::string& text)
{
    const std::vector<std::string> parts = Split(text, '/');
    if (parts.size() != 5)
        RefuseTerminal("badge è inizio/lunghezza/inizio/lunghezza/codice: " + text);
    const auto number = [&](std::size_t part) {
        const std::optional<int> value = NumberOf(parts[part]);
        if (!value || *value > 99) RefuseTerminal("badge, valore non valido: " + parts[part]);
        return *value;
    };
    BadgeLayout layout{number(0), number(1), number(2), number(3), parts[4]};
    if (layout.plant_code.find_first_not_of("0123456789") != std::string::npos ||
        layout.plant_code.size() != static_cast<std::size_t>(layout.plant_length))
        RefuseTerminal("badge, il codice ha tante cifre quanto è lungo: " + layout.plant_code);
    return layout;
}

}  // namespace

TerminalSettings ParseTerminal(std::string_view text)
{
    SettingPairs pairs(text);
    TerminalSettings settings;
    settings.model = TakeModel(pairs);
    settings.number = pairs.TerminalNumber();

    const auto invent = [&settings](std::size_t count, std::uint32_t seed) {
        return InventPunches(count, seed, *settings.model);
    };
    settings.punches = TakePunches(pairs, kMostPunches, invent, ReadPunches);
    const int capacity = static_cast<int>(settings.model->capacity);
    settings.capacity =
        static_cast<std::size_t>(pairs.Number("capacita", 1, kMostPunches).value_or(capacity));
    if (settings.punches.size() > settings.capacity)
        RefuseTerminal("più timbrature della capacità di " + std::to_string(settings.capacity));

    const int held = static_cast<int>(settings.punches.size());
    settings.acquired = static_cast<std::size_t>(pairs.Number("acquisite", 0, held).value_or(0));
    settings.records_per_answer =
        static_cast<std::size_t>(pairs.Number("record", 1, kMostRecords).value_or(10));
    settings.clock_offset = pairs.Seconds("scarto");
    if (const std::optional<std::string> badge = pairs.Text("badge"))
        settings.badge = ParseBadge(*badge);
    settings.release = pairs.Text("versione").value_or(std::string(settings.model->release));
    pairs.RefuseTheRest();
    return settings;
}

}  // namespace orlo::simulator
