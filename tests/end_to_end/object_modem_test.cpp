// Orlo and Sipa behind a modem, which their component dials. The modem keeps its echo to itself:
// whatever it says first counts as its answer.

#include "tests/end_to_end/journal_pipe.h"
#include "tests/end_to_end/object_installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

using testing::StartsWith;

constexpr char kAnswers[] = "eco=0,attesa=300";

// kThreeLines of terminal 5.
const Lines kLines = {
    "31200603150830000100000001010705",
    "31200603151245000200000001020005",
    "31200603160001000100000001039905",
};
constexpr char kAcquired[] =
    " stato stato prossima 1 marca 1 prossima 2 marca 2 prossima 3 marca 3 prossima 4";

/// Terminal 5, plant code 15, number "+39 0464/123456", on COM1.
class ObjectByModem : public testing::TestWithParam<ObjectModel>
{
protected:
    const Installation installation;

    void SetUp() override
    {
        installation.Register({{.terminal = 5, .type = GetParam().type, .modem = true}});
        installation.Write("record", kThreeRecords);
    }
    std::unique_ptr<SimulatedLine> Simulate(const std::string& modem,
                                            const std::string& plant_code = "15",
                                            const std::vector<std::string>& more = {}) const
    {
        std::vector<std::string> arguments = {"--terminale",
                                              std::string("numero=5,modello=") + GetParam().name +
                                                  ",impianto=" + plant_code +
                                                  ",file=" + installation.PathOf("record"),
                                              "--modem", modem};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments);
    }
    Ended Acquire() const { return installation.Run({"--acquisisci", "5"}); }
};

TEST_P(ObjectByModem, IsDialledToldItsPlantCodeAndAcquired)
{
    const auto line = Simulate(kAnswers);
    const Ended ended = Acquire();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_THAT(line->Commands(),
                StartsWith(std::string("ATD+39 0464/123456 telegramma @@,15 ") + kAcquired));
    EXPECT_EQ(installation.PunchLines(), kLines);
    EXPECT_EQ(line->State("5.da_acquisire"), "0");
}

TEST_P(ObjectByModem, EchoOfTheDialCommandIsNotTakenForItsAnswer)
{
    const auto line = Simulate("eco=1,attesa=300");
    EXPECT_EQ(Acquire().status, 0);
    EXPECT_EQ(installation.PunchLines(), kLines);
}

TEST_P(ObjectByModem, EachTerminalIsDialledAnew)
{
    installation.Register({{.terminal = 5, .type = GetParam().type, .modem = true},
                           {.terminal = 6, .type = GetParam().type, .modem = true}});
    const auto line =
        Simulate(kAnswers, "15",
                 {"--terminale", std::string("numero=6,modello=") + GetParam().name +
                                     ",impianto=0,file=" + installation.PathOf("record")});
    EXPECT_EQ(installation.Run({"--acquisisci", "5,6"}).status, 0);
    // Terminal 6 has neither number nor plant code in the register.
    EXPECT_THAT(line->Commands(), StartsWith(std::string("ATD+39 0464/123456 telegramma @@,15 ") +
                                             kAcquired + "  ATD telegramma @@,0 " + kAcquired));
    EXPECT_EQ(line->State("6.da_acquisire"), "0");
}

TEST_P(ObjectByModem, ModemLeavesTheLineWhenTheProgramIsGone)
{
    JournalPipe journal(installation.PathOf("com1.registro"));
    const auto line = Simulate(kAnswers);
    EXPECT_EQ(Acquire().status, 0);
    EXPECT_TRUE(journal.WaitFor("porta chiusa, linea lasciata"));
}

TEST_P(ObjectByModem, RefusedPlantCodeIsToldAsOftenAsThereAreAttempts)
{
    const auto line = Simulate(kAnswers, /*plant_code=*/"16");
    const Ended ended = Acquire();
    // Nothing else follows from it: whether the terminal answers shows in the command.
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_THAT(line->Commands(),
                StartsWith(std::string("ATD+39 0464/123456 telegramma @@,15  telegramma @@,15  "
                                       "telegramma @@,15 ") +
                           kAcquired));
    EXPECT_EQ(installation.PunchLines(), kLines);
}

TEST_P(ObjectByModem, PlantCodeTakenAtTheSecondTryIsNotToldAgain)
{
    const auto line = Simulate(kAnswers, "15", {"--guasto", "telegramma#1:esito=21,Errore linea"});
    EXPECT_EQ(Acquire().status, 0);
    EXPECT_EQ(line->Commands("telegramma"), "telegramma @@,15  telegramma @@,15 ");
}

TEST_P(ObjectByModem, ModemThatSpeaksByteByByteIsNotWaitedFor)
{
    // The first byte is an answer, and the plant code behind it belongs to a call that is up: a
    // modem is on line before it says so.
    const auto line = Simulate("eco=0,attesa=300,byte-singoli=20");
    const Ended ended = Acquire();
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(installation.PunchLines(), kLines);
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectByModem, testing::Values(kOrlo, kSipa),
                         [](const auto& model) { return NameOf(model); });

class ObjectCallThatFalls : public ObjectByModem
{
};

TEST_P(ObjectCallThatFalls, LeavesTheRecordsThatWereNotMarkedForTheNextCall)
{
    const auto line = Simulate(kAnswers, "15", {"--guasto", "prossima#2:caduta"});
    const Ended first = Acquire();
    EXPECT_EQ(first.status, 1);
    EXPECT_EQ(first.errors, "Terminale 5 non acquisito: Errore:99,Time Out\n");
    EXPECT_EQ(installation.PunchLines(), Lines{kLines[0]});
    EXPECT_EQ(line->State("5.da_acquisire"), "2");
    const Ended second = Acquire();
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(second.errors, "");
    EXPECT_EQ(installation.PunchLines(), kLines);
    EXPECT_EQ(line->State("5.da_acquisire"), "0");
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectCallThatFalls, testing::Values(kOrlo),
                         [](const auto& model) { return NameOf(model); });

/// The words of the modem are not read: nobody answers behind these calls, and that is the reason.
class ObjectCallThatFails : public ObjectByModem
{
protected:
    void ExpectNobodyAnswers(SimulatedLine& line) const
    {
        const Ended ended = Acquire();
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.errors, "Terminale 5 non acquisito: Errore:99,Time Out\n");
        EXPECT_EQ(line.Commands("ATD"), "ATD+39 0464/123456");
        EXPECT_EQ(line.Commands("stato"), "");
        EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
        EXPECT_EQ(line.State("5.da_acquisire"), "3");
    }
};

TEST_P(ObjectCallThatFails, BusyIsATimeOutOfTheTerminal)
{
    const auto line = Simulate("eco=0,attesa=300,esito=BUSY");
    ExpectNobodyAnswers(*line);
}

TEST_P(ObjectCallThatFails, NoCarrierIsATimeOutOfTheTerminal)
{
    const auto line = Simulate("eco=0,attesa=300,esito=NO CARRIER");
    ExpectNobodyAnswers(*line);
}

TEST_P(ObjectCallThatFails, NoDialToneIsATimeOutOfTheTerminal)
{
    const auto line = Simulate("eco=0,attesa=300,esito=NO DIAL TONE");
    ExpectNobodyAnswers(*line);
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectCallThatFails, testing::Values(kOrlo),
                         [](const auto& model) { return NameOf(model); });

}  // namespace
}  // namespace orlo::end_to_end
