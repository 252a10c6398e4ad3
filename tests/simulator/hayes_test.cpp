#include "simulator/hayes.h"

#include "simulator/escape_detector.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;

/// "Z0 Q0", "D:0123", "?" for the unknown one; "-" for a line that is no command line.
std::string Parsed(std::string_view line)
{
    const auto commands = ParseHayes(line);
    if (!commands) return "-";
    std::string text;
    for (const HayesCommand& command : *commands) {
        text += text.empty() ? "" : " ";
        if (command.letter == 0)
            text += "?";
        else if (command.letter == 'D')
            text += "D:" + command.dialled;
        else
            text += command.letter + std::to_string(command.number);
    }
    return text;
}

TEST(Hayes, CommandLinesAreTakenApart)
{
    const std::pair<const char*, const char*> cases[] = {
        {"AT", ""},
        {"at", ""},
        {"ATZQ0E0V1X1", "Z0 Q0 E0 V1 X1"},
        {"atz q0 e1", "Z0 Q0 E1"},
        {"ATH", "H0"},
        {"ATH0", "H0"},
        {"ATO", "O0"},
        {"ATX4", "X4"},
        {"ATD0123", "D:0123"},
        {"ATDT 0123", "D:T0123"},
        {"ATE0D0123E1", "E0 D:0123E1"},
        {"ATD", "D:"},
        {"ATE2", "?"},
        {"ATX5", "?"},
        {"ATE0Y1Q0", "E0 ?"},
        {"AT&F", "?"},
        {"", "-"},
        {"A", "-"},
        {"OK", "-"},
        {"xAT", "-"},
    };
    for (const auto& [line, parsed] : cases) EXPECT_EQ(Parsed(line), parsed) << line;
}

TEST(Hayes, ResultsAreWordsOrNumbers)
{
    EXPECT_EQ(HayesText(HayesResult::Ok, true, true), "\r\nOK\r\n");
    EXPECT_EQ(HayesText(HayesResult::Connect, true, true), "\r\nCONNECT 9600\r\n");
    EXPECT_EQ(HayesText(HayesResult::Connect, true, false), "\r\nCONNECT\r\n");
    EXPECT_EQ(HayesText(HayesResult::NoCarrier, true, true), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(HayesText(HayesResult::NoDialTone, true, true), "\r\nNO DIAL TONE\r\n");
    EXPECT_EQ(HayesText(HayesResult::Busy, true, true), "\r\nBUSY\r\n");
    EXPECT_EQ(HayesText(HayesResult::Error, true, true), "\r\nERROR\r\n");
    EXPECT_EQ(HayesText(HayesResult::Ok, false, true), "0\r");
    EXPECT_EQ(HayesText(HayesResult::Connect, false, true), "1\r");
    EXPECT_EQ(HayesText(HayesResult::Busy, false, true), "7\r");
}

struct EscapeCase {
    const char* name;
    /// Byte and milliseconds since the one before; the first counts from the last data.
    std::vector<std::pair<char, int>> bytes;
    bool complete;
};

TEST(Escape, ThreePlusesBehindASilenceAreOne)
{
    const EscapeCase cases[] = {
        {"half a second apart", {{'+', 1000}, {'+', 500}, {'+', 500}}, true},
        {"all at once", {{'+', 5000}, {'+', 0}, {'+', 0}}, true},
        {"no silence before", {{'+', 500}, {'+', 500}, {'+', 500}}, false},
        {"only two", {{'+', 1000}, {'+', 500}}, false},
        {"four", {{'+', 1000}, {'+', 100}, {'+', 100}, {'+', 100}}, false},
        {"data behind", {{'+', 1000}, {'+', 100}, {'+', 100}, {'x', 900}}, false},
        {"data between", {{'+', 1000}, {'x', 100}, {'+', 100}, {'+', 100}}, false},
        {"too slow: each begins anew", {{'+', 1000}, {'+', 1000}, {'+', 1000}}, false},
        {"begun anew by a silence", {{'+', 1000}, {'+', 1000}, {'+', 500}, {'+', 500}}, true},
    };
    for (const EscapeCase& c : cases) {
        EscapeDetector escape;
        Instant now = 10s;
        escape.Begin(now);
        for (const auto& [byte, pause] : c.bytes) {
            now += std::chrono::milliseconds(pause);
            escape.Take(byte, now);
        }
        const auto expected = c.complete ? std::optional(now + 1s) : std::nullopt;
        EXPECT_EQ(escape.CompleteAt(), expected) << c.name;
    }
}

}  // namespace
}  // namespace orlo::simulator
