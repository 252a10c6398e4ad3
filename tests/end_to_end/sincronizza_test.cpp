// "orlodesk --sincronizza" over several terminals, of all families and ways to reach them.

#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/journal_pipe.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>

namespace orlo::end_to_end
{
namespace
{

using testing::AnyOf;
using testing::HasSubstr;
using testing::MatchesRegex;

/// A clock that was set: a second may have ended between the PC's reading and the terminal's.
bool IsRight(const std::string& offset)
{
    return offset == "-1" || offset == "0" || offset == "1";
}

/// Of an answer to "03": it holds the PC's date and minute of this moment.
testing::Matcher<std::string> SaysTheMinuteOfNow()
{
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> date{};
    std::array<char, 16> minute{};
    std::strftime(date.data(), date.size(), " %d/%m/%Y ", std::localtime(&now));
    std::strftime(minute.data(), minute.size(), " %H:%M:", std::localtime(&now));
    constexpr std::size_t kCentury = 7;
    const std::string without_century = std::string(date.data()).erase(kCentury, 2);
    return testing::AllOf(HasSubstr(without_century), HasSubstr(std::string(minute.data())));
}

/// Sends these bytes down a line, by hand, and returns what comes up to a CR.
std::string AskByHand(const std::string& device, const std::string& request)
{
    const int line = open(device.c_str(), O_RDWR | O_NOCTTY);
    std::string answer;
    char c = 0;
    if (write(line, request.data(), request.size()) == static_cast<ssize_t>(request.size()))
        while (c != '\r' && WaitForInput(line) && read(line, &c, 1) == 1) answer += c;
    close(line);
    return answer;
}

class Sincronizza : public testing::Test
{
protected:
    const Installation installation;

    /// Terminals 4, 5 and 6, Strale, OrloTre and Lumo, on COM1, a minute fast.
    std::unique_ptr<SimulatedLine> ThreeOnALine(std::vector<std::string> more = {},
                                                const char* offset = "60") const
    {
        installation.Register(
            {{.terminal = 4}, {.terminal = 5, .type = 7}, {.terminal = 6, .type = 6}});
        std::vector<std::string> arguments = {
            "--terminale", std::string("numero=4,modello=Strale,scarto=") + offset,
            "--terminale", std::string("numero=5,modello=OrloTre,scarto=") + offset,
            "--terminale", std::string("numero=6,modello=Lumo,scarto=") + offset};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments);
    }
    /// Terminals 1 and 2, Orlo and Sipa, on COM2.
    std::unique_ptr<SimulatedLine> OrloAndSipa(std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments = {"--terminale", "numero=1,modello=Orlo,scarto=-7200",
                                              "--terminale", "numero=2,modello=Sipa,scarto=86400"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments, "com2");
    }
    void RegisterBothFamilies() const
    {
        installation.Register({{.terminal = 1, .type = 1, .port = 2},
                               {.terminal = 2, .type = 2, .port = 2},
                               {.terminal = 4}});
    }
};

TEST_F(Sincronizza, TerminalSaysThePcsTimeAfterwards)
{
    // Ten years and more.
    const auto line = ThreeOnALine({}, "-315360000");
    const auto says_before = SaysTheMinuteOfNow();
    const Ended ended = installation.Run({"--sincronizza", "4,5"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    const std::string strale = AskByHand(installation.PathOf("com1"),
                                         "\x02\x84"
                                         "03\xE9\r");
    const std::string orlo_tre = AskByHand(installation.PathOf("com1"),
                                           "\x02\x85"
                                           "03\xEA\r");
    // A minute may have ended meanwhile.
    const auto says_now = AnyOf(says_before, SaysTheMinuteOfNow());
    EXPECT_THAT(strale, says_now);
    EXPECT_THAT(orlo_tre, says_now);
}

TEST_F(Sincronizza, OrloAndSipaAreSetThroughTheComponentThatComesWithTheProgram)
{
    RegisterBothFamilies();
    const auto line = OrloAndSipa();
    const Ended ended = installation.Run({"--sincronizza", "1,2"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_PRED1(IsRight, line->State("1.scarto"));
    EXPECT_PRED1(IsRight, line->State("2.scarto"));
    // Each is read back.
    EXPECT_EQ(line->Commands("ora"), "ora ora");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

TEST_F(Sincronizza, BothFamiliesGoInOneRunInTheOrderGiven)
{
    RegisterBothFamilies();
    const auto objects = OrloAndSipa();
    const auto serial = installation.Simulate({"--terminale", "numero=4,modello=Strale,scarto=60"});
    const Ended ended = installation.Run({"--sincronizza", "1,4,2"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_PRED1(IsRight, objects->State("1.scarto"));
    EXPECT_PRED1(IsRight, serial->State("4.scarto"));
    EXPECT_PRED1(IsRight, objects->State("2.scarto"));
}

TEST_F(Sincronizza, OrloThatRefusesTheTimeOrToBeReadBackIsNotDoneAndTheSipaBehindItIs)
{
    RegisterBothFamilies();
    struct Case {
        const char* fault;
        const char* reason;
    };
    const Case cases[] = {
        {"regola#1:esito=22,Valore errato", "Errore = 22,Valore errato"},
        {"regola#1:richiesta-persa", "Errore = 99,Time Out"},
        {"ora#1:silenzio", "Errore = 99,Time Out"},
    };
    for (const Case& c : cases) {
        const auto line = OrloAndSipa({"--guasto", c.fault});
        const Ended ended = installation.Run({"--sincronizza", "1,2"});
        EXPECT_EQ(ended.status, 1) << c.fault;
        EXPECT_EQ(ended.errors, std::string("Comunicazione: ") + c.reason +
                                    "\nTerminale 1 non sincronizzato: " + c.reason + "\n")
            << c.fault;
        EXPECT_PRED1(IsRight, line->State("2.scarto")) << c.fault;
    }
}

TEST_F(Sincronizza, WithoutItsComponentNothingIsSetAndEachTerminalIsNamed)
{
    RegisterBothFamilies();
    const auto serial = installation.Simulate({"--terminale", "numero=4,modello=Strale,scarto=60"});
    const Ended ended =
        installation.Run({"--sincronizza", "1,4", "--componente", installation.PathOf("no.so")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("\nTerminale 1 non sincronizzato: 429 "));
    EXPECT_THAT(ended.errors, HasSubstr("\nTerminale 4 non sincronizzato: 429 "));
    EXPECT_EQ(serial->State("4.scarto"), "60");
}

TEST_F(Sincronizza, SilentTerminalInTheMiddleIsNamedAndTheOthersAreSet)
{
    const auto line = ThreeOnALine({"--guasto", "2:richiesta-persa"});
    const Ended ended = installation.Run({"--sincronizza", "4,5,6"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 5 non sincronizzato: Timeout\n");
    EXPECT_PRED1(IsRight, line->State("4.scarto"));
    EXPECT_EQ(line->State("5.scarto"), "60");
    EXPECT_PRED1(IsRight, line->State("6.scarto"));
}

TEST_F(Sincronizza, LateAnswerIsNotTakenForThatOfTheTerminalBehindIt)
{
    const auto line = ThreeOnALine({"--guasto", "1:ritardo=2150", "--guasto", "2:richiesta-persa"});
    const Ended ended = installation.Run({"--sincronizza", "4,5"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 4 non sincronizzato: Timeout\n"
              "Terminale 5 non sincronizzato: Timeout\n");
    EXPECT_EQ(line->State("5.scarto"), "60");
}

TEST_F(Sincronizza, UnknownNumberIsNamedAndTheOthersAreSet)
{
    const auto line = ThreeOnALine();
    const Ended ended = installation.Run({"--sincronizza", "4,32,6"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 32 non sincronizzato: non è nel registro\n");
    EXPECT_PRED1(IsRight, line->State("4.scarto"));
    EXPECT_EQ(line->State("5.scarto"), "60") << "not in the list";
    EXPECT_PRED1(IsRight, line->State("6.scarto"));
}

TEST_F(Sincronizza, TerminalWithoutAPortOrAKnownTypeIsNamed)
{
    installation.Register(
        {{.terminal = 4, .port = 9}, {.terminal = 5, .type = 9}, {.terminal = 6, .port = 0}});
    const Ended ended = installation.Run({"--sincronizza", "4,5,6"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 4 non sincronizzato: nessuna porta\n"
              "Terminale 5 non sincronizzato: il tipo di terminale non è conosciuto\n"
              "Terminale 6 non sincronizzato: nessuna porta\n");
}

TEST_F(Sincronizza, ListWithBlanksAndDuplicatesSetsEachOnce)
{
    const auto line = ThreeOnALine();
    const Ended ended = installation.Run({"--sincronizza", " 4, 6 ,4", "--sincronizza", "06"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_THAT(line->Commands(), MatchesRegex("01[0-9]{13} 01[0-9]{13}"));
    EXPECT_PRED1(IsRight, line->State("4.scarto"));
    EXPECT_PRED1(IsRight, line->State("6.scarto"));
}

TEST_F(Sincronizza, ListThatIsNoneIsWrongUsageAndNothingIsSent)
{
    const auto line = ThreeOnALine();
    for (const char* list : {"", " ", "4,", ",4", "4,,6", "4,x", "4;6", "4-6", "0", "33", "-4",
                             "4.5", "4 6", "tutti"}) {
        const Ended ended = installation.Run({"--sincronizza", list});
        EXPECT_EQ(ended.status, 2) << list;
        EXPECT_EQ(ended.errors,
                  "--sincronizza vuole numeri di terminale da 1 a 32, separati da virgole.\n"
                  "Vedere --help.\n")
            << list;
    }
    EXPECT_EQ(line->Commands(), "");
    EXPECT_EQ(line->State("4.scarto"), "60");
}

TEST_F(Sincronizza, TerminationLeavesWhatWasSetAndNamesTheRest)
{
    JournalPipe journal(installation.PathOf("com1.registro"));
    const auto line = ThreeOnALine({"--attesa", "700"});
    const auto program = installation.Start({"--sincronizza", "4,5,6"});
    // The request of the first has come, its answer has not left.
    ASSERT_TRUE(journal.WaitFor("04"));
    program->Signal(SIGTERM);
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 5 non sincronizzato: programma interrotto\n"
              "Terminale 6 non sincronizzato: programma interrotto\n");
    EXPECT_PRED1(IsRight, line->State("4.scarto"));
    EXPECT_EQ(line->State("5.scarto"), "60");
    EXPECT_EQ(line->State("6.scarto"), "60");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

TEST_F(Sincronizza, TerminationBetweenOrloAndSipaIsNamedToo)
{
    RegisterBothFamilies();
    JournalPipe journal(installation.PathOf("com2.registro"));
    const auto line = OrloAndSipa({"--attesa", "700"});
    const auto program = installation.Start({"--sincronizza", "1,2"});
    // The Orlo is being read back.
    ASSERT_TRUE(journal.WaitFor("ora"));
    program->Signal(SIGTERM);
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 2 non sincronizzato: programma interrotto\n");
    EXPECT_PRED1(IsRight, line->State("1.scarto"));
    EXPECT_EQ(line->State("2.scarto"), "86400");
}

/// Dials in real time, some twenty seconds of pauses, and hangs up in ten.
class SincronizzaByModem : public testing::Test
{
protected:
    const Installation installation;

    std::unique_ptr<SimulatedLine> Simulate(const std::string& modem,
                                            const std::vector<std::string>& more = {}) const
    {
        installation.Register({{.terminal = 4, .port = 2}, {.terminal = 5, .modem = true}});
        std::vector<std::string> arguments = {"--terminale", "numero=5,modello=Strale,scarto=60",
                                              "--modem", modem};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return installation.Simulate(arguments);
    }
    std::unique_ptr<SimulatedLine> TerminalOnACable() const
    {
        return installation.Simulate({"--terminale", "numero=4,modello=Strale,scarto=60"}, "com2");
    }
};

TEST_F(SincronizzaByModem, TerminalIsDialledSetAndHungUpAndThenTheOneOnACable)
{
    const auto line = Simulate("attesa=500");
    const auto cable = TerminalOnACable();
    const Ended ended = installation.Run({"--sincronizza", "5,4"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_THAT(line->Commands(), MatchesRegex("AT AT ATZQ0E0V1X1 AT AT ATD\\+39 0464/123456 "
                                               "01[0-9]{13} \\+\\+\\+ ATH"));
    EXPECT_PRED1(IsRight, line->State("5.scarto"));
    EXPECT_PRED1(IsRight, cable->State("4.scarto"));
}

TEST_F(SincronizzaByModem, SilentTerminalIsHungUpAndNamed)
{
    const auto line = Simulate("attesa=500", {"--guasto", "01*:richiesta-persa"});
    const Ended ended = installation.Run({"--sincronizza", "5"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 5 non sincronizzato: Timeout\n");
    EXPECT_EQ(line->Commands("+++"), "+++");
    EXPECT_EQ(line->Commands("ATH"), "ATH");
    EXPECT_EQ(line->State("5.scarto"), "60");
}

TEST_F(SincronizzaByModem, OrloIsDialledByItsComponent)
{
    installation.Register({{.terminal = 5, .type = 1, .modem = true}});
    // The first text behind the dial command counts as the answer: the modem may not echo it.
    const auto line =
        installation.Simulate({"--terminale", "numero=5,modello=Orlo,scarto=60,impianto=15",
                               "--modem", "attesa=500,eco=0"});
    const Ended ended = installation.Run({"--sincronizza", "5"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(line->Commands("ATD"), "ATD+39 0464/123456");
    EXPECT_EQ(line->Commands("telegramma"), "telegramma @@,15 ");
    EXPECT_PRED1(IsRight, line->State("5.scarto"));
}

TEST_F(SincronizzaByModem, FailedDialIsTheReasonAndTheOneOnACableIsSet)
{
    const auto line = Simulate("esito=NO DIAL TONE,attesa=500");
    const auto cable = TerminalOnACable();
    const Ended ended = installation.Run({"--sincronizza", "5,4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 5 non sincronizzato: Modem Line No Dial Tone\n");
    EXPECT_EQ(line->Commands("01"), "");
    EXPECT_PRED1(IsRight, cable->State("4.scarto"));
}

}  // namespace
}  // namespace orlo::end_to_end
