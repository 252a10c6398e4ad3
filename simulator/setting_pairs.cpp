#include "simulator/setting_pairs.h"

#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr int kMostTerminals = 32;

}  // namespace

void RefuseTerminal(const std::string& reason)
{
    throw UsageError("terminale: " + reason);
}

SettingPairs::SettingPairs(std::string_view text, std::string described)
    : described_(std::move(described))
{
    for (const std::string& pair : Split(text, ',')) {
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos) Refuse("manca \"=\" in \"" + pair + "\"");
        if (!values_.emplace(pair.substr(0, equals), pair.substr(equals + 1)).second)
            Refuse("chiave ripetuta: " + pair.substr(0, equals));
    }
}

std::optional<std::string> SettingPairs::Text(const std::string& key)
{
    const auto node = values_.extract(key);
    return node ? std::optional(node.mapped()) : std::nullopt;
}

std::optional<int> SettingPairs::Number(const std::string& key, int least, int most)
{
    const std::optional<std::string> text = Text(key);
    if (!text) return std::nullopt;
    const std::optional<int> value = NumberOf(*text);
    if (!value || *value < least || *value > most)
        Refuse(key + " va da " + std::to_string(least) + " a " + std::to_string(most));
    return value;
}

int SettingPairs::TerminalNumber()
{
    const std::optional<int> number = Number("numero", 1, kMostTerminals);
    if (!number) Refuse("manca numero");
    return *number;
}

std::chrono::seconds SettingPairs::Seconds(const std::string& key)
{
    const std::string text = Text(key).value_or("0");
    const bool behind = text.starts_with('-');
    const std::optional<int> seconds = NumberOf(std::string_view(text).substr(behind ? 1 : 0));
    if (!seconds) Refuse(key + " in secondi, anche negativo: " + text);
    return std::chrono::seconds(behind ? -*seconds : *seconds);
}

void SettingPairs::RefuseTheRest() const
{
    if (!values_.empty()) Refuse("chiave sconosciuta: " + values_.begin()->first);
}

void SettingPairs::Refuse(const std::string& reason) const
{
    throw UsageError(described_ + ": " + reason);
}

}  // namespace orlo::simulator
