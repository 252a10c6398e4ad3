#include "simulator/modem_settings.h"

#include "simulator/setting_pairs.h"
#include "simulator/usage_error.h"

#include <algorithm>
#include <array>
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

CallOutcome OutcomeOf(std::string_view value)
{
    const auto* const row = std::find_if(kOutcomes.begin(), kOutcomes.end(),
                                         [value](const auto& r) { return r.first == value; });
    if (row == kOutcomes.end()) throw UsageError("modem: esito sconosciuto: " + std::string(value));
    return row->second;
}

}  // namespace

ModemSettings ParseModem(std::string_view text)
{
    ModemSettings settings;
    if (text.empty()) return settings;
    SettingPairs pairs(text, "modem");
    if (const auto outcome = pairs.Text("esito")) settings.outcome = OutcomeOf(*outcome);
    if (const auto wait = pairs.Number("attesa", 0, kLongestMs))
        settings.dial_time = std::chrono::milliseconds(*wait);
    if (const auto echo = pairs.Number("eco", 0, 1)) settings.echo = *echo != 0;
    if (const auto pause = pairs.Number("byte-singoli", 0, kLongestMs))
        settings.byte_pause = std::chrono::milliseconds(*pause);
    if (const auto bytes = pairs.Number("cade", 0, kMostBytes))
        settings.drop_after_bytes = static_cast<std::size_t>(*bytes);
    pairs.RefuseTheRest();
    return settings;
}

}  // namespace orlo::simulator
