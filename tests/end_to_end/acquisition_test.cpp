#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

using testing::EndsWith;
using testing::HasSubstr;

class UnattendedAcquisition : public testing::Test
{
protected:
    const Installation installation;

    static Lines StraleLines(const std::vector<Punch>& punches)
    {
        return StandardLines(punches, 4, "9:", "12");
    }
};

TEST_F(UnattendedAcquisition, EmptiesTwoTerminalsOnOneLineInTheOrderGiven)
{
    const std::vector<Punch> punches = VariedPunches(25);
    const std::vector<Punch> of_lumo(punches.begin(), punches.begin() + 12);
    const std::vector<Punch> of_strale(punches.begin() + 12, punches.end());
    installation.Write("lumo", PunchSource(of_lumo));
    installation.Write("strale", PunchSource(of_strale));
    installation.Register({{.terminal = 4, .type = 4}, {.terminal = 6, .type = 6}});
    const auto line = installation.Simulate(
        {"--terminale", "numero=4,modello=Strale,file=" + installation.PathOf("strale"),
         "--terminale", "numero=6,modello=Lumo,file=" + installation.PathOf("lumo")});

    const Ended ended = installation.Run({"--acquisisci", "6,4"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    Lines expected = StandardLines(of_lumo, 6, "9<", "14");
    for (const std::string& punch : StraleLines(of_strale)) expected.push_back(punch);
    EXPECT_EQ(installation.PunchLines(), expected);
    EXPECT_EQ(line->State("4.acquisite"), "13");
    EXPECT_EQ(line->State("6.acquisite"), "12");
}

TEST_F(UnattendedAcquisition, EmptiesTerminalsOnTwoLines)
{
    installation.Register({{.terminal = 4, .port = 2}, {.terminal = 6, .type = 6, .port = 1}});
    const auto com1 =
        installation.Simulate({"--terminale", "numero=6,modello=Lumo,timbrature=11"}, "com1");
    const auto com2 =
        installation.Simulate({"--terminale", "numero=4,modello=Strale,timbrature=7"}, "com2");
    EXPECT_EQ(installation.Run({"--acquisisci", "4,6"}).status, 0);
    EXPECT_EQ(com1->State("6.acquisite"), "11");
    EXPECT_EQ(com2->State("4.acquisite"), "7");
    EXPECT_EQ(installation.PunchLines().size(), 18U);
}

TEST_F(UnattendedAcquisition, AppendsToTheFileNamed)
{
    const std::vector<Punch> punches = VariedPunches(3);
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(punches);
    installation.Write("altro.txt", "già scritto\r\n");
    EXPECT_EQ(installation.Run({"--acquisisci", "4", "--file", "altro.txt"}).status, 0);
    Lines expected = {"già scritto"};
    for (const std::string& punch : StraleLines(punches)) expected.push_back(punch);
    EXPECT_EQ(installation.PunchLines("altro.txt"), expected);
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
}

TEST_F(UnattendedAcquisition, EmptyMemoryIsDoneAndMakesAnEmptyFile)
{
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale({});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(line->Commands(), "32");
    EXPECT_TRUE(installation.Has("TIMBRAT.TXT"));
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), "");
}

TEST_F(UnattendedAcquisition, NamesTheTerminalsThatCannotBeAcquiredAndGoesOn)
{
    installation.Register({{.terminal = 4}, {.terminal = 6, .type = 6, .active = false}});
    const auto line = installation.SimulateStrale(VariedPunches(2));
    const Ended ended = installation.Run({"--acquisisci", "12,6,4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 12 non acquisito: non è nel registro\n"
              "Terminale 6 non acquisito: non è attivo\n");
    EXPECT_EQ(installation.PunchLines().size(), 2U);
}

TEST_F(UnattendedAcquisition, MissingDeviceIsNotDone)
{
    installation.Register({{.terminal = 4}});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 4 non acquisito: Errore aprendo la COM\n");
    // Opened and closed all the same.
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), "");
    EXPECT_TRUE(installation.Has("TIMBRAT.TXT"));
}

TEST_F(UnattendedAcquisition, TerminalSilentBehindTheStatusGetsThreeRequests)
{
    installation.Register({{.terminal = 4, .retries = 3}});
    const auto line = installation.SimulateStrale(VariedPunches(5), {"--guasto", "33*:silenzio"});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 4 non acquisito: Timeout\n");
    EXPECT_EQ(line->Commands(), "32 33OK 33NO 33NO");
    EXPECT_EQ(line->State("4.acquisite"), "0");
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), "");
}

TEST_F(UnattendedAcquisition, TerminalThatNeverAnswersIsAskedForItsStatusOnly)
{
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(VariedPunches(5), {"--guasto", "*:silenzio"});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.errors, "Terminale 4 non acquisito: Timeout\n");
    EXPECT_EQ(line->Commands(), "32");
}

TEST_F(UnattendedAcquisition, GoodAnswerAfterTwoFailedOnesIsAcknowledged)
{
    installation.Register({{.terminal = 4, .retries = 3}});
    const auto line = installation.SimulateStrale(
        VariedPunches(15), {"--guasto", "33#1:checksum-errato", "--guasto", "33#2:byte-mancanti"});
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(line->Commands("33"), "33OK 33NO 33NO 33OK 33OK");
    EXPECT_EQ(installation.PunchLines(), StraleLines(VariedPunches(15)));
}

TEST_F(UnattendedAcquisition, ZeroAttemptsAskForNothing)
{
    installation.Register({{.terminal = 4, .retries = 0}});
    const auto line = installation.SimulateStrale(VariedPunches(5));
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(line->Commands(), "32");
}

// An OrloTre says one punch too many as long as it holds any: with one still to acquire by its own
// words there is none, and nothing more is asked for.
TEST_F(UnattendedAcquisition, OrloTreEndsAtItsCorrectedCount)
{
    installation.Register({{.terminal = 4, .type = 7}});
    const auto line =
        installation.Simulate({"--terminale", "numero=4,modello=OrloTre,timbrature=10"});
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(line->Commands(), "32 33OK 32 33OK 32");
    EXPECT_EQ(line->State("4.acquisite"), "10");
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(line->Commands(), "32 33OK 32 33OK 32 32");
}

// Registered as a Strale the same terminal declares a punch that it never delivers.
TEST_F(UnattendedAcquisition, ThreeIdleAnswersEndTheAcquisition)
{
    installation.Register({{.terminal = 4, .type = 4}});
    const auto line =
        installation.Simulate({"--terminale", "numero=4,modello=OrloTre,timbrature=5"});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(
        ended.errors,
        "Attenzione: Il terminale dichiara 1 timbrature da acquisire ma non ne consegna.\n"
        "Terminale 4 non acquisito: Il terminale dichiara 1 timbrature da acquisire ma non ne "
        "consegna.\n");
    // The second request brings nothing either, but a lower count.
    EXPECT_EQ(line->Commands("33"), "33OK 33OK 33OK 33OK 33OK");
    EXPECT_EQ(installation.PunchLines().size(), 5U);
}

TEST_F(UnattendedAcquisition, MoreThanTenRecordsAreRefusedAndStayInTheTerminal)
{
    installation.Register({{.terminal = 4}});
    const auto line =
        installation.SimulateStrale(VariedPunches(25), {"--guasto", "33*:troppi-record"});
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors,
                HasSubstr("Attenzione: Il terminale ha risposto con più di 10 timbrature: non sono "
                          "state scritte e restano nel terminale.\n"));
    EXPECT_EQ(line->Commands(), "32 33OK 33NO 33NO");
    EXPECT_EQ(line->State("4.acquisite"), "0");
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"), "");
}

// The record lacks year and terminal, and the end mark is read in their place: what has come is
// written as it is, in a line of 31 characters, and the trace tells.
TEST_F(UnattendedAcquisition, RecordCutShortIsWrittenAsItIsAndNoted)
{
    installation.Register({{.terminal = 4}});
    const auto line =
        installation.SimulateStrale({{'9', "123456", "0001", "15", "03", "2006", "08", "30"},
                                     {'1', "234567", "0002", "16", "03", "2006", "17", "45"}},
                                    {"--guasto", "33#1:record-corto=4"});
    EXPECT_EQ(installation.Run({"--acquisisci", "4", "--traccia", "traccia"}).status, 0);
    EXPECT_EQ(installation.Read("TIMBRAT.TXT"),
              "31200603150830000100001234560104\r\n"
              "3120EN031617450002000023456702D\r\n");
    EXPECT_THAT(installation.Read("traccia"),
                HasSubstr(" terminale 4: ultima timbratura della risposta incompleta, scritta così "
                          "com'è\n"));
}

TEST_F(UnattendedAcquisition, TraceHoldsTheBytesOfTheLine)
{
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale({});
    EXPECT_EQ(installation.Run({"--acquisisci", "4", "--traccia", "traccia"}).status, 0);
    const std::string trace = installation.Read("traccia");
    EXPECT_THAT(trace, HasSubstr(" COM1 >  02 84 33 32 EB 0D "));
    EXPECT_THAT(trace, HasSubstr("|..TPnt -0001 TrI|"));
    EXPECT_THAT(trace, EndsWith("|\n"));
}

}  // namespace
}  // namespace orlo::end_to_end
