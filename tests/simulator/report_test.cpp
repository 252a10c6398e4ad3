#include "simulator/state_report.h"
#include "tests/simulator/wall.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace orlo::simulator
{
namespace
{

TEST(JournalLine, SeparatesItsFieldsByTabs)
{
    EXPECT_EQ(JournalLine("10:00", {4, "33OK", "acquisite 0, consegnate 0", "END"}),
              "10:00\t04\t33OK\tacquisite 0, consegnate 0\tEND");
}

TEST(JournalLine, WritesOutWhatCannotBeRead)
{
    EXPECT_EQ(JournalLine("t", {1, "\x7F\t\xE8\\", "d", "\r"}),
              "t\t01\t\\x7F\\x09\\xE8\\x5C\td\t\\x0D");
    EXPECT_EQ(JournalLine("t", {-1, "", "d", ""}), "t\t-1\t\td\t");
}

std::vector<Terminal> UsedTerminals()
{
    std::vector<Terminal> terminals;
    terminals.push_back(MakeTerminal("numero=2,modello=OrloTre,timbrature=25"));
    terminals.push_back(MakeTerminal("numero=13,modello=Strale,scarto=-5"));
    for (const char* command : {"33OK", "33OK", "010603150830103", "940009 02", "97STORE",
                                "1307 08 30 01111100 1 005", "1312 17 00 10000001 2 010"})
        terminals[0].Answer(command);
    return terminals;
}

const char kReport[] =
    "2.modello=OrloTre\n"
    "2.timbrature=25\n"
    "2.acquisite=10\n"
    "2.da_acquisire=15\n"
    "2.scarto=10\n"
    "2.orologio=0603150830103\n"
    "2.badge=2/5/6/6/00001\n"
    "2.suoneria_07=08:30 01111100 1 5\n"
    "2.suoneria_12=17:00 10000001 2 10\n"
    "13.modello=Strale\n"
    "13.timbrature=0\n"
    "13.acquisite=0\n"
    "13.da_acquisire=0\n"
    "13.scarto=-5\n"
    "13.orologio=\n"
    "13.badge=1/5/6/6/00001\n";

TEST(StateReport, TellsWhatEveryTerminalHolds)
{
    EXPECT_EQ(StateReport(UsedTerminals()), kReport);
}

TEST(StateReport, ReplacesTheFile)
{
    const auto path = std::filesystem::path(testing::TempDir()) / "stato_prova.txt";
    std::ofstream(path) << std::string(10000, 'x');
    WriteStateReport(path.string(), StateReport(UsedTerminals()));
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    EXPECT_EQ(text.str(), kReport);
    EXPECT_FALSE(std::filesystem::exists(path.string() + ".tmp"));
    std::filesystem::remove(path);
}

TEST(StateReport, FailsInAFolderThatIsNotThere)
{
    EXPECT_THROW(WriteStateReport("/nonexistent/stato", ""), std::system_error);
}

}  // namespace
}  // namespace orlo::simulator
