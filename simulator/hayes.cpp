#include "simulator/hayes.h"

#include "simulator/digits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orlo::simulator
{

namespace
{

/// A command and the highest number that it takes.
struct CommandRow {
    char letter;
    int most;
};

// E echo, H hang up, O back on line, Q quiet, V results in words, X extended results, Z reset.
constexpr std::array<CommandRow, 7> kCommands = {
    {{'E', 1}, {'H', 0}, {'O', 0}, {'Q', 1}, {'V', 1}, {'X', 4}, {'Z', 0}}};

struct ResultRow {
    HayesResult result;
    std::string_view words;
    std::string_view number;
};

constexpr std::array<ResultRow, 6> kResults = {{{HayesResult::Ok, "OK", "0"},
                                                {HayesResult::Connect, "CONNECT", "1"},
                                                {HayesResult::NoCarrier, "NO CARRIER", "3"},
                                                {HayesResult::Error, "ERROR", "4"},
                                                {HayesResult::NoDialTone, "NO DIAL TONE", "6"},
                                                {HayesResult::Busy, "BUSY", "7"}}};

std::string WithoutBlanksInCapitals(std::string_view line)
{
    std::string text;
    for (const char c : line)
        if (c != ' ') text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

/// Takes the first command off the text.
HayesCommand TakeCommand(std::string_view& text)
{
    const char letter = text.front();
    text.remove_prefix(1);
    if (letter == 'D') return {letter, 0, std::string(std::exchange(text, {}))};
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const int number = NumberOf(text.substr(0, digits)).value_or(0);
    text.remove_prefix(digits);
    const bool known = std::any_of(kCommands.begin(), kCommands.end(), [&](const CommandRow& row) {
        return row.letter == letter && number <= row.most;
    });
    return {known ? letter : '\0', number, {}};
}

}  // namespace

std::optional<std::vector<HayesCommand>> ParseHayes(std::string_view line)
{
    const std::string text = WithoutBlanksInCapitals(line);
    if (!text.starts_with("AT")) return std::nullopt;
    std::string_view rest = std::string_view(text).substr(2);
    std::vector<HayesCommand> commands;
    while (!rest.empty()) {
        commands.push_back(TakeCommand(rest));
        if (commands.back().letter == 0) break;
    }
    return commands;
}

std::string HayesText(HayesResult result, bool in_words, bool extended)
{
    const auto* const row =
        std::find_if(kResults.begin(), kResults.end(),
                     [result](const ResultRow& r) { return r.result == result; });
    if (!in_words) return std::string(row->number) + "\r";
    const bool with_speed = extended && result == HayesResult::Connect;
    return "\r\n" + std::string(row->words) + (with_speed ? " 9600" : "") + "\r\n";
}

}  // namespace orlo::simulator
