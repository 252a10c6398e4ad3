#include "simulator/modem_settings.h"

#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr int kLongestMs = 600000;
constexpr int kMostBytes = 999999999;

constexpr std::array<std::pair<std::string_view, CallOutcome>, 5> kOutcomes = {
    {{"CONNECT", CallOutcome::Connect},
     {"NO CARRIER", CallOutcome::NoCarrier},
     {"NO DIAL TONE", CallOutcome::NoDialTone},
     {"BUSY", CallOutcome::Busy},
     {"silenzio", CallOutcome::Silence}}};

[[noreturn]] void Refuse(const std::string& reason)
{
    throw UsageError("modem: " + reason);
}

CallOutcome OutcomeOf(std::string_view value)
{
    const auto* const row = std::find_if(kOutcomes.begin(), kOutcomes.end(),
                                         [value](const auto& r) { return r.first == value; });
    if (row == kOutcomes.end()) Refuse("esito sconosciuto: " + std::string(value));
    return row->second;
}

int Number(std::string_view key, std::string_view value, int most)
{
    const std::optional<int> number = NumberOf(value);
    if (!number || *number > most) Refuse(std::string(key) + " va da 0 a " + std::to_string(most));
    return *number;
}

void Take(ModemSettings& settings, std::string_view key, std::string_view value)
{
    if (key == "esito")
        settings.outcome = OutcomeOf(value);
    else if (key == "attesa")
        settings.dial_time = std::chrono::milliseconds(Number(key, value, kLongestMs));
    else if (key == "eco")
        settings.echo = Number(key, value, 1) != 0;
    else if (key == "byte-singoli")
        settings.byte_pause = std::chrono::milliseconds(Number(key, value, kLongestMs));
    else if (key == "cade")
        settings.drop_after_bytes = static_cast<std::size_t>(Number(key, value, kMostBytes));
    else
        Refuse("chiave sconosciuta: " + std::string(key));
}

}  // namespace

ModemSettings ParseModem(std::string_view text)
{
    ModemSettings settings;
    if (text.empty()) return settings;
    for (const std::string& pair : Split(text, ',')) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos) Refuse("manca \"=\" in \"" + pair + "\"");
        Take(settings, std::string_view(pair).substr(0, equals),
             std::string_view(pair).substr(equals + 1));
    }
    return settings;
}

}  // namespace orlo::simulator
