#include "status/status_answer.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlo
{
namespace
{

const StatusAnswerLayout& LayoutOf(TerminalType type)
{
    return ModelByCode(static_cast<int>(type))->status_answer;
}

constexpr TerminalType kWithWeekday[] = {TerminalType::OrloII, TerminalType::Strale,
                                         TerminalType::StraleN, TerminalType::Lumo};
constexpr TerminalType kWithoutWeekday[] = {TerminalType::OrloTre, TerminalType::SuperStrale};

struct Case {
    const char* name;
    const char* answer;
    const char* state;
    const char* version;
    const char* date;
    const char* time;
};

void ExpectCuts(const Case& c, TerminalType type)
{
    const StatusAnswerLayout& layout = LayoutOf(type);
    const StateAndVersion terminal = CutStateAndVersion(layout, c.answer);
    const DateAndTime clock = CutDateAndTime(layout, c.answer);
    const std::vector<std::string> cuts = {terminal.state, terminal.version, clock.date,
                                           clock.time};
    EXPECT_EQ(cuts, (std::vector<std::string>{c.state, c.version, c.date, c.time})) << c.name;
}

TEST(StatusAnswer, OfModelsWithAWeekdayIsCutAtNine)
{
    const Case cases[] = {
        {"every position", "123456789ABCDEFGHIJKLMNOP", "123456789", "9ABCDEFGHIJKLMNOP",
         "ABCDEFGHIJKL", "IJKLMNOP"},
        {"a real answer", "IN LINEA Mer 15/03/06 Rel. 2.31 08:30:00", "IN LINEA ",
         " Mer 15/03/06 Rel. 2.31 08:30:00", "Mer 15/03/06", "08:30:00"},
        {"bad frame", "RX ERROR", "RX ERROR", "", "", "RX ERROR"},
        {"nine characters", "123456789", "123456789", "9", "", "23456789"},
        {"ten characters", "123456789A", "123456789", "9A", "A", "3456789A"},
        {"two characters", "OK", "OK", "", "", "OK"},
        {"nothing", "", "", "", "", ""},
    };
    for (const TerminalType type : kWithWeekday)
        for (const Case& c : cases) ExpectCuts(c, type);
}

TEST(StatusAnswer, OfModelsWithoutAWeekdayIsCutAtTen)
{
    const Case cases[] = {
        {"every position", "123456789ABCDEFGHIJKLMNOP", "123456789A", "ABCDEFGHIJKLMNOP",
         "BCDEFGHI", "HIJKLMNOP"},
        {"a real answer", "IN LINEA  15/03/06 Rel. 5.11 08:30:00", "IN LINEA  ",
         " 15/03/06 Rel. 5.11 08:30:00", "15/03/06", " 08:30:00"},
        {"bad frame", "RX ERROR", "RX ERROR", "", "", "RX ERROR"},
        {"ten characters", "123456789A", "123456789A", "A", "", "23456789A"},
        {"eleven characters", "123456789AB", "123456789A", "AB", "B", "3456789AB"},
        {"nothing", "", "", "", "", ""},
    };
    for (const TerminalType type : kWithoutWeekday)
        for (const Case& c : cases) ExpectCuts(c, type);
}

}  // namespace
}  // namespace orlo
