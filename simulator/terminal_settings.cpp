#include "simulator/terminal_settings.h"

#include "simulator/digits.h"
#include "simulator/punch_source.h"
#include "simulator/usage_error.h"

#include <fstream>
#include <map>
#include <optional>

namespace orlo::simulator
{

namespace
{

constexpr int kMostTerminals = 32;
constexpr int kMostRecords = 12;
constexpr int kMostPunches = 99999;  // what five digits of the status can say

[[noreturn]] void Refuse(const std::string& reason)
{
    throw UsageError("terminale: " + reason);
}

/// The pairs key=value of a text; every key is taken out by the one who reads it, so that what
/// remains is unknown.
class Pairs
{
public:
    explicit Pairs(std::string_view text)
    {
        for (const std::string& pair : Split(text, ',')) {
            const std::size_t equals = pair.find('=');
            if (equals == std::string::npos) Refuse("manca \"=\" in \"" + pair + "\"");
            if (!values_.emplace(pair.substr(0, equals), pair.substr(equals + 1)).second)
                Refuse("chiave ripetuta: " + pair.substr(0, equals));
        }
    }

    std::optional<std::string> Text(const std::string& key)
    {
        const auto node = values_.extract(key);
        return node ? std::optional(node.mapped()) : std::nullopt;
    }

    std::optional<int> Number(const std::string& key, int least, int most)
    {
        const std::optional<std::string> text = Text(key);
        if (!text) return std::nullopt;
        const std::optional<int> value = NumberOf(*text);
        if (!value || *value < least || *value > most)
            Refuse(key + " va da " + std::to_string(least) + " a " + std::to_string(most));
        return value;
    }

    void RefuseTheRest() const
    {
        if (!values_.empty()) Refuse("chiave sconosciuta: " + values_.begin()->first);
    }

private:
    std::map<std::string, std::string> values_;
};

const TerminalModel* TakeModel(Pairs& pairs)
{
    const std::optional<std::string> name = pairs.Text("modello");
    if (!name) Refuse("manca modello");
    const TerminalModel* model = FindModel(*name);
    if (model == nullptr) Refuse("modello sconosciuto: " + *name);
    return model;
}

std::vector<Punch> TakePunches(Pairs& pairs, const TerminalModel& model)
{
    const std::optional<std::string> path = pairs.Text("file");
    const std::optional<int> count = pairs.Number("timbrature", 0, kMostPunches);
    const std::optional<int> seed = pairs.Number("seme", 0, 999999999);
    if (!path)
        return InventPunches(static_cast<std::size_t>(count.value_or(0)),
                             static_cast<std::uint32_t>(seed.value_or(1)), model);
    if (count || seed) Refuse("file esclude timbrature e seme");
    std::ifstream file(*path);
    if (!file) Refuse("non si apre " + *path);
    try {
        return ReadPunches(file);
    } catch (const UsageError& error) {
        Refuse(*path + ", " + error.what());
    }
}

std::chrono::seconds TakeOffset(Pairs& pairs)
{
    const std::string text = pairs.Text("scarto").value_or("0");
    const bool behind = text.starts_with('-');
    const std::optional<int> seconds = NumberOf(std::string_view(text).substr(behind ? 1 : 0));
    if (!seconds) Refuse("scarto in secondi, anche negativo: " + text);
    return std::chrono::seconds(behind ? -*seconds : *seconds);
}

// Start and length of the plant code, start and length of the badge number, plant code.
BadgeLayout ParseBadge(const std::string& text)
{
    const std::vector<std::string> parts = Split(text, '/');
    if (parts.size() != 5) Refuse("badge è inizio/lunghezza/inizio/lunghezza/codice: " + text);
    const auto number = [&](std::size_t part) {
        const std::optional<int> value = NumberOf(parts[part]);
        if (!value || *value > 99) Refuse("badge, valore non valido: " + parts[part]);
        return *value;
    };
    BadgeLayout layout{number(0), number(1), number(2), number(3), parts[4]};
    if (layout.plant_code.find_first_not_of("0123456789") != std::string::npos ||
        layout.plant_code.size() != static_cast<std::size_t>(layout.plant_length))
        Refuse("badge, il codice ha tante cifre quanto è lungo: " + layout.plant_code);
    return layout;
}

}  // namespace

TerminalSettings ParseTerminal(std::string_view text)
{
    Pairs pairs(text);
    TerminalSettings settings;
    settings.model = TakeModel(pairs);
    const std::optional<int> number = pairs.Number("numero", 1, kMostTerminals);
    if (!number) Refuse("manca numero");
    settings.number = *number;

    settings.punches = TakePunches(pairs, *settings.model);
    const int capacity = static_cast<int>(settings.model->capacity);
    settings.capacity =
        static_cast<std::size_t>(pairs.Number("capacita", 1, kMostPunches).value_or(capacity));
    if (settings.punches.size() > settings.capacity)
        Refuse("più timbrature della capacità di " + std::to_string(settings.capacity));

    const int held = static_cast<int>(settings.punches.size());
    settings.acquired = static_cast<std::size_t>(pairs.Number("acquisite", 0, held).value_or(0));
    settings.records_per_answer =
        static_cast<std::size_t>(pairs.Number("record", 1, kMostRecords).value_or(10));
    settings.clock_offset = TakeOffset(pairs);
    if (const std::optional<std::string> badge = pairs.Text("badge"))
        settings.badge = ParseBadge(*badge);
    settings.release = pairs.Text("versione").value_or(std::string(settings.model->release));
    pairs.RefuseTheRest();
    return settings;
}

}  // namespace orlo::simulator
