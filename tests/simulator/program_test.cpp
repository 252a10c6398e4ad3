#include "tests/simulator/simulator_process.h"
#include "tests/simulator/wall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace orlo::simulator
{
namespace
{

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string kReadClock = {2, static_cast<char>(129), 48, 51, static_cast<char>(230), 13};
const std::string kOkOfOne =
    "\x01\x81"
    "OK\x9C\r";
const std::string kOkOfTwo =
    "\x01\x82"
    "OK\x9D\r";
const std::string kEndOfOne =
    "\x01\x81"
    "END\xD9\r";

class Program : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = testing::TempDir() + "/simulatore.XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        link_ = (folder_ / "linea").string();
    }

    void TearDown() override { fs::remove_all(folder_); }

    /// The command line of two terminals, with more options behind.
    std::vector<std::string> Wall(std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {
            "--collegamento", link_,
            "--terminale",    "numero=1,modello=Strale,timbrature=12",
            "--terminale",    "numero=2,modello=OrloTre"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    std::string PathOf(const char* name) const { return (folder_ / name).string(); }

    std::string Text(const char* name) const
    {
        std::ifstream file(folder_ / name);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }

    fs::path folder_;
    std::string link_;
};

TEST_F(Program, AnswersOnTheLinkAndRemovesItAtTheEnd)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        SimulatorProcess program(Wall());
        ASSERT_EQ(program.Line(), "Pronto: " + link_);
        const Port port(link_);
        ASSERT_TRUE(port.IsOpen());
        port.Write("noise" + kReadClock);
        // SOH, address, 40 characters, checksum, CR.
        const std::string answer = port.Read(44);
        ASSERT_EQ(answer.size(), 44U);
        EXPECT_EQ(answer.substr(0, 11),
                  "\x01\x81"
                  "IN LINEA ");
        EXPECT_EQ(answer.back(), '\r');
        program.Signal(signal);
        EXPECT_EQ(program.Wait(), 0);
        EXPECT_FALSE(fs::is_symlink(link_));
        EXPECT_TRUE(port.IsLost());
    }
}

TEST_F(Program, GivesEveryByteAsItIs)
{
    SimulatorProcess program(Wall());
    program.Line();
    const Port port(link_);
    port.Write(RequestTo(1, "97STORE"));
    EXPECT_EQ(port.Read(6), kOkOfOne) << "no CR became another character";
    port.Write(RequestTo(2, "97STORE"));
    EXPECT_EQ(port.Read(6), kOkOfTwo) << "no echo of the request before";
}

TEST_F(Program, SurvivesThatTheLinkIsClosedAndOpenedAgain)
{
    SimulatorProcess program(Wall());
    program.Line();
    for (int i = 0; i < 20; ++i) {
        const Port port(link_);
        port.Write(RequestTo(1, "97STORE"));
        ASSERT_EQ(port.Read(6), kOkOfOne) << i;
    }
}

TEST_F(Program, ServesWhoLeavesBeforeTheAnswer)
{
    SimulatorProcess program(Wall({"--registro", PathOf("registro")}));
    program.Line();
    Port(link_).Write(RequestTo(1, "33OK"));
    const Port port(link_);
    port.Write(RequestTo(2, "97STORE"));
    EXPECT_THAT(port.ReadThrough(kOkOfTwo), testing::EndsWith(kOkOfTwo));
    EXPECT_THAT(Text("registro"), HasSubstr("\t01\t33OK\tacquisite 0, consegnate 10\t"));
}

TEST_F(Program, HearsSignalsWhileNobodyIsThere)
{
    SimulatorProcess program(Wall({"--stato", PathOf("stato")}));
    program.Line();
    Port(link_).Write(RequestTo(1, "97STORE"));
    program.Signal(SIGUSR1);
    EXPECT_EQ(program.Line(), "Stato: " + PathOf("stato")) << "also with the other end closed";
}

TEST_F(Program, ReplacesALinkThatIsLeftOverAndNothingElse)
{
    fs::create_symlink("/nonexistent", link_);
    {
        SimulatorProcess program(Wall());
        EXPECT_EQ(program.Line(), "Pronto: " + link_);
        EXPECT_TRUE(Port(link_).IsOpen());
    }
    fs::remove(link_);
    std::ofstream(link_) << "mio";
    SimulatorProcess program(Wall());
    EXPECT_EQ(program.Wait(), 1);
    EXPECT_THAT(program.Complaints(), HasSubstr(link_));
    EXPECT_EQ(Text("linea"), "mio");
}

TEST_F(Program, ComesBackUnderTheSameLinkAfterAHangUp)
{
    SimulatorProcess program(Wall({"--guasto", "2:caduta=50"}));
    ASSERT_EQ(program.Line(), "Pronto: " + link_);
    {
        const Port port(link_);
        port.Write(RequestTo(1, "33OK"));
        EXPECT_EQ(port.Read(267).size(), 267U);
        port.Write(RequestTo(1, "33OK"));
        EXPECT_TRUE(port.IsLost());
    }
    ASSERT_EQ(program.Line(), "Caduta: " + link_);
    ASSERT_EQ(program.Line(), "Pronto: " + link_);
    const Port port(link_);
    port.Write(RequestTo(1, "33NO"));
    EXPECT_EQ(port.Read(59).size(), 59U) << "the two punches that remained";
    port.Write(RequestTo(1, "33OK"));
    EXPECT_EQ(port.Read(7), kEndOfOne);
}

TEST_F(Program, SendsALateAnswerLate)
{
    SimulatorProcess program(Wall({"--guasto", "1:ritardo=30"}));
    program.Line();
    const Port port(link_);
    port.Write(RequestTo(1, "97STORE") + RequestTo(2, "97STORE"));
    EXPECT_EQ(port.Read(12), kOkOfTwo + kOkOfOne);
}

TEST_F(Program, GivesTheWholeAnswerAtTheLinesPace)
{
    SimulatorProcess program(Wall({"--velocita", "115200", "--attesa", "2"}));
    program.Line();
    const Port port(link_);
    const auto before = std::chrono::steady_clock::now();
    port.Write(RequestTo(1, "33OK"));
    EXPECT_EQ(port.Read(267).size(), 267U);
    // 8 bytes there, 267 back, 10 bits each, and the turnaround.
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::microseconds(25871));
}

TEST_F(Program, WritesItsJournalAndItsState)
{
    SimulatorProcess program(Wall({"--registro", PathOf("registro"), "--stato", PathOf("stato")}));
    program.Line();
    const Port port(link_);
    port.Write(RequestTo(1, "33OK"));
    port.Read(267);
    program.Signal(SIGUSR1);
    ASSERT_EQ(program.Line(), "Stato: " + PathOf("stato"));
    EXPECT_THAT(Text("stato"), HasSubstr("1.acquisite=0\n1.da_acquisire=12\n"));
    port.Write(RequestTo(1, "33OK"));
    port.Read(59);
    program.Signal(SIGTERM);
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_THAT(Text("stato"), HasSubstr("1.acquisite=10\n1.da_acquisire=2\n"));
    EXPECT_THAT(Text("stato"), HasSubstr("2.modello=OrloTre\n"));
    EXPECT_THAT(Text("registro"), HasSubstr("\t01\t33OK\tacquisite 10, consegnate 2\t"));
}

TEST_F(Program, ExitsWithTwoOnWrongUsage)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{},
          {"--boh"},
          {"--collegamento", link_},
          {"--collegamento", link_, "--terminale", "numero=1,modello=Boh"}}) {
        SimulatorProcess program(arguments);
        EXPECT_EQ(program.Wait(), 2);
        EXPECT_THAT(program.Complaints(), HasSubstr("--help"));
        EXPECT_FALSE(fs::is_symlink(link_));
    }
}

TEST_F(Program, ExplainsItself)
{
    SimulatorProcess program({"--help"});
    EXPECT_EQ(program.Wait(), 0);
    const std::string help = program.Rest();
    for (const char* option :
         {"--collegamento", "--terminale", "--velocita", "--attesa", "--guasto", "--modem",
          "--registro", "--stato", "Orlo II", "richiesta-persa"})
        EXPECT_THAT(help, HasSubstr(option));
}

}  // namespace
}  // namespace orlo::simulator
