// Each of these dials in real time, some twenty seconds of pauses, and hangs up in ten.

#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/journal_pipe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace orlo::end_to_end
{
namespace
{

using testing::HasSubstr;

const std::string kDialled = "AT AT ATZQ0E0V1X1 AT AT ATD+39 0464/123456";

/// Terminal 5, a Strale with 25 punches, behind a modem on COM1.
class ByModem : public testing::Test
{
protected:
    const Installation installation;
    const std::vector<Punch> punches = VariedPunches(25);

    void SetUp() override { installation.Register({{.terminal = 5, .modem = true}}); }
    std::unique_ptr<SimulatedLine> Simulate(const std::string& modem,
                                            const std::vector<std::string>& more = {}) const
    {
        installation.Write("timbrature", PunchSource(punches));
        std::vector<std::string> arguments = {
            "--terminale", "numero=5,modello=Strale,file=" + installation.PathOf("timbrature"),
            "--modem", modem};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments);
    }
    Lines FirstLines(std::ptrdiff_t count) const
    {
        return StandardLines({punches.begin(), punches.begin() + count}, 5, "9:", "12");
    }
};

TEST_F(ByModem, TerminalIsDialledAcquiredAndHungUp)
{
    const auto line = Simulate("attesa=500");
    const Ended ended = installation.Run({"--acquisisci", "5", "--traccia", "traccia"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(installation.PunchLines(), FirstLines(25));
    EXPECT_EQ(line->State("5.da_acquisire"), "0");
    EXPECT_EQ(line->Commands(), kDialled + " 32 33OK 32 33OK 32 33OK 32 33OK 32 +++ ATH");
    EXPECT_THAT(installation.Read("traccia"), HasSubstr(" COM1: la porta non ha la linea DTR\n"));
}

TEST_F(ByModem, LineLostInTheMiddleIsHungUpAndItsPunchesAreStillInTheTerminal)
{
    const auto line = Simulate("attesa=500", {"--guasto", "33#2:caduta"});
    const Ended ended = installation.Run({"--acquisisci", "5"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 5 non acquisito: Timeout\n");
    // The requests behind the loss reach nobody. The modem is back in its command mode already,
    // where the escape is the beginning of the next command line.
    EXPECT_EQ(line->Commands("AT"), kDialled);
    EXPECT_EQ(line->Commands("+++"), "+++ATH");
    EXPECT_EQ(line->Commands("33"), "33OK 33OK");
    EXPECT_EQ(installation.PunchLines(), FirstLines(10));
    EXPECT_EQ(line->State("5.da_acquisire"), "15");
}

TEST_F(ByModem, TerminatedProgramHangsUpFirst)
{
    JournalPipe journal(installation.PathOf("com1.registro"));
    const auto line = Simulate("attesa=500", {"--attesa", "500"});
    const auto program = installation.Start({"--acquisisci", "5"});
    ASSERT_TRUE(journal.WaitFor("ATD+39 0464/123456"));
    ASSERT_TRUE(journal.WaitFor("33OK") && journal.WaitFor("33OK"));
    program->Signal(SIGTERM);
    EXPECT_TRUE(journal.WaitFor("+++"));
    EXPECT_TRUE(journal.WaitFor("ATH"));
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 5 non acquisito: Acquisizione interrotta.\n");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_EQ(installation.PunchLines(), FirstLines(20));
}

}  // namespace
}  // namespace orlo::end_to_end
