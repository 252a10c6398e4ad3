#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// One command of a command line: 'Z' with its number, 0 when none is given; 'D' with the rest of
/// the line, which is the number to dial.
struct HayesCommand {
    char letter = 0;
    int number = 0;
    std::string dialled;
};

/// The commands of a line without its CR, such as "ATZQ0E0V1X1"; small letters and blanks are as
/// good. nullopt for a line that does not begin with AT, which a modem passes over in silence.
/// A command that the modem does not know, or whose number it does not take, has letter 0 and ends
/// the list: those before it are carried out, then comes ERROR.
std::optional<std::vector<HayesCommand>> ParseHayes(std::string_view line);

enum class HayesResult { Ok, Connect, NoCarrier, Error, NoDialTone, Busy };

/// How a modem says it: in words between CR LF pairs, or as a number and a CR. With extended
/// results CONNECT tells the speed.
std::string HayesText(HayesResult result, bool in_words, bool extended);

}  // namespace orlo::simulator
