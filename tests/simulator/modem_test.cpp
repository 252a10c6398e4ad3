#include "simulator/modem.h"

#include "simulator/line.h"
#include "simulator/usage_error.h"
#include "tests/simulator/wall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

/// Terminal 1, a Strale, behind a modem; the test moves the clock.
class Call : public testing::Test
{
protected:
    void SetUp() override { Make(""); }
    void Make(std::string_view settings, const std::vector<FaultRule>& faults = {})
    {
        std::vector<Terminal> terminals;
        terminals.push_back(MakeTerminal("numero=1,modello=Strale,timbrature=25"));
        line.emplace(LineSettings{}, std::move(terminals), FaultPlan(faults));
        modem.emplace(ParseModem(settings), *line, [this](const JournalEntry& entry) {
            journal.push_back(std::to_string(entry.address) + " " + entry.command + " " +
                              entry.deed);
        });
    }
    std::string Send(std::string_view bytes) { return BytesOf(modem->Receive(bytes, now)); }
    /// What comes while time passes, the modem being woken when it wants to be.
    std::string Wait(Instant time)
    {
        const Instant end = now + time;
        std::string bytes;
        while (modem->WakeAt() && *modem->WakeAt() <= end) {
            now = *modem->WakeAt();
            bytes += Send("");
        }
        now = end;
        return bytes;
    }
    void Connect()
    {
        Send("ATE0D0123\r");
        ASSERT_EQ(Wait(1s), "\r\nCONNECT 9600\r\n");
    }
    std::string Escape()
    {
        Wait(1s);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Send("+"), "");
            Wait(500ms);
        }
        return Wait(5s);
    }
    bool TerminalAnswers() { return Send(RequestTo(1, "97STORE")) == kOk; }

    const std::string kOk =
        "\x01\x81"
        "OK\x9C\r";
    Instant now = 100s;
    std::vector<std::string> journal;
    std::optional<Line> line;
    std::optional<Modem> modem;
};

TEST_F(Call, EchoesUntilItIsToldNotTo)
{
    EXPECT_EQ(Send("AT\r"), "AT\r\r\nOK\r\n");
    EXPECT_EQ(Send("ATE0\r"), "ATE0\r\r\nOK\r\n");
    EXPECT_EQ(Send("AT\r"), "\r\nOK\r\n");
    EXPECT_EQ(Send("ATE1\r"), "\r\nOK\r\n");
    EXPECT_EQ(Send("AT\r"), "AT\r\r\nOK\r\n");
}

TEST_F(Call, ResetBringsBackTheEchoThatIsSet)
{
    Send("ATE0\r");
    Send("ATZ\r");
    EXPECT_EQ(Send("AT\r"), "AT\r\r\nOK\r\n");
    Make("eco=0");
    EXPECT_EQ(Send("ATZQ0E0V1X1\r"), "\r\nOK\r\n");
}

TEST_F(Call, QuietAndNumericResultsAreGivenAsTold)
{
    Make("eco=0");
    EXPECT_EQ(Send("ATV0\r"), "0\r");
    EXPECT_EQ(Send("ATQ1\r"), "");
    EXPECT_EQ(Send("ATQ0V1\r"), "\r\nOK\r\n");
}

TEST_F(Call, UnknownCommandIsAnErrorAndNoiseIsNothing)
{
    Make("eco=0");
    EXPECT_EQ(Send("ATY\r"), "\r\nERROR\r\n");
    EXPECT_EQ(Send("boh\r"), "");
    EXPECT_EQ(Send("+++AT\r"), "\r\nOK\r\n") << "what stands before the AT does not count";
}

TEST_F(Call, EveryOutcomeComesAfterItsTime)
{
    const std::pair<const char*, const char*> cases[] = {
        {"esito=CONNECT", "\r\nCONNECT 9600\r\n"},
        {"esito=NO CARRIER", "\r\nNO CARRIER\r\n"},
        {"esito=NO DIAL TONE", "\r\nNO DIAL TONE\r\n"},
        {"esito=BUSY", "\r\nBUSY\r\n"},
        {"esito=silenzio", ""},
    };
    for (const auto& [settings, result] : cases) {
        Make(std::string(settings) + ",eco=0,attesa=3000");
        EXPECT_EQ(Send("ATD0123\r"), "");
        EXPECT_EQ(Wait(2999ms), "") << settings;
        EXPECT_EQ(Wait(1ms), result) << settings;
        EXPECT_EQ(Wait(10min), "") << settings;
    }
}

TEST_F(Call, ByteGivesUpACallThatIsNotYetThere)
{
    Send("ATE0D0123\r");
    EXPECT_EQ(Send("A"), "\r\nNO CARRIER\r\n");
    EXPECT_EQ(Wait(10s), "");
}

TEST_F(Call, TerminalsAreReachedOnlyWhileConnected)
{
    EXPECT_FALSE(TerminalAnswers());
    modem->PortClosed();
    Connect();
    EXPECT_TRUE(TerminalAnswers());
    EXPECT_EQ(Escape(), "\r\nOK\r\n");
    EXPECT_FALSE(TerminalAnswers()) << "in command mode";
    EXPECT_EQ(Send("ATO\r"), "\r\nCONNECT 9600\r\n");
    EXPECT_TRUE(TerminalAnswers());
}

TEST_F(Call, HangUpEndsTheCall)
{
    Connect();
    Escape();
    EXPECT_EQ(Send("ATH\r"), "\r\nOK\r\n");
    EXPECT_EQ(Send("ATO\r"), "\r\nNO CARRIER\r\n");
    EXPECT_THAT(journal, ElementsAre("-1 ATE0D0123 comando eseguito", "-1 +++ modo comandi",
                                     "-1 ATH comando eseguito", "-1 ATO comando eseguito"));
}

TEST_F(Call, EscapeWithoutItsSilenceIsData)
{
    Connect();
    Send("x");
    for (int i = 0; i < 3; ++i) Send("+");
    EXPECT_EQ(Wait(5s), "");
    EXPECT_TRUE(TerminalAnswers());
}

TEST_F(Call, ClosedPortEndsTheCall)
{
    Connect();
    modem->PortClosed();
    EXPECT_FALSE(TerminalAnswers());
    EXPECT_THAT(journal.back(), HasSubstr("porta chiusa"));
}

TEST_F(Call, FaultOfTheLineIsTheLossOfTheCarrier)
{
    Make("", {ParseFaultRule("1:caduta")});
    Connect();
    // Half of the six bytes of the answer.
    EXPECT_EQ(Send(RequestTo(1, "97STORE")), kOk.substr(0, 3) + "\r\nNO CARRIER\r\n");
    EXPECT_FALSE(TerminalAnswers());
    modem->PortClosed();
    Connect();
    EXPECT_TRUE(TerminalAnswers());
}

TEST_F(Call, CallDropsBehindSoManyBytes)
{
    Make("cade=8");
    Connect();
    EXPECT_TRUE(TerminalAnswers());
    EXPECT_EQ(Send(RequestTo(1, "97STORE")), kOk.substr(0, 2) + "\r\nNO CARRIER\r\n");
    modem->PortClosed();
    Connect();
    EXPECT_TRUE(TerminalAnswers()) << "every call has its own count";
}

TEST_F(Call, ResultsCanComeByteByByte)
{
    Make("eco=0,byte-singoli=40");
    const std::vector<LineEvent> events = modem->Receive("AT\r", now);
    ASSERT_EQ(events.size(), 6U);
    EXPECT_EQ(BytesOf(events), "\r\nOK\r\n");
    EXPECT_EQ(events[0].bytes, "\r");
    EXPECT_EQ(events[5].due - events[0].due, 200ms);
}

TEST_F(Call, ResultsComeInOnePieceOtherwise)
{
    Make("eco=0");
    EXPECT_EQ(modem->Receive("AT\r", now).size(), 1U);
}

TEST(ModemSettings, AreRefusedWhenTheyCannotBeMeant)
{
    for (const char* text : {"esito=FORSE", "esito", "attesa=-1", "attesa=presto", "eco=2",
                             "eco=1,eco=0", "cade=x", "numero=1", ","})
        EXPECT_THROW(ParseModem(text), UsageError) << text;
}

TEST(ModemSettings, RefusalNamesTheModem)
{
    try {
        ParseModem("eco=1,eco=0");
        FAIL() << "accepted";
    } catch (const UsageError& error) {
        EXPECT_STREQ(error.what(), "modem: chiave ripetuta: eco");
    }
}

}  // namespace
}  // namespace orlo::simulator
