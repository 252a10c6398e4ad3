#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

/// Throws UsageError about the description of a terminal.
[[noreturn]] void RefuseTerminal(const std::string& reason);

/// The pairs key=value that describe a terminal or a modem; every key is taken out by the one who
/// reads it, so that what remains is unknown. All throw UsageError, whose text begins with what is
/// described.
class SettingPairs
{
public:
    explicit SettingPairs(std::string_view text, std::string described = "terminale");

    std::optional<std::string> Text(const std::string& key);
    std::optional<int> Number(const std::string& key, int least, int most);

    /// "numero", 1..32, which every terminal needs.
    int TerminalNumber();

    /// Seconds, also negative; 0 when not given.
    std::chrono::seconds Seconds(const std::string& key);

    void RefuseTheRest() const;

private:
    [[noreturn]] void Refuse(const std::string& reason) const;

    std::string described_;
    std::map<std::string, std::string> values_;
};

}  // namespace orlo::simulator
