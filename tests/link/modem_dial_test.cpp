#include "link/modem_dial.h"

#include "tests/support/test_workstation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// A modem that answers each command out of a table; a command without an answer meets silence.
class Dial : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::ScriptedPort& port = pc.com1;
    std::string buffer;
    std::map<std::string, std::vector<testing::Arrival>> answers = {
        {"AT\r", {{0ms, "\r\nOK\r\n"}}},
        {"ATZQ0E0V1X1\r", {{0ms, "\r\nOK\r\n"}}},
        {"ATD0123\r", {{5s, "\r\nCONNECT 9600\r\n"}}},
    };
    /// What was sent, with the seconds since what was sent before: "2.0 AT$".
    std::vector<std::string> timeline;
    std::chrono::milliseconds last_noted{0};

    void SetUp() override
    {
        ASSERT_TRUE(port.SetPortOpen(true));
        port.answer_to = [this](std::string_view sent) {
            Note(std::string(sent));
            return answers[std::string(sent)];
        };
    }
    void Note(std::string what)
    {
        if (what.ends_with('\r')) what.back() = '$';
        // The clock steps in eighteenths of a second: to the nearest half.
        const auto halves = (pc.clock.Passed() - last_noted + 250ms) / 500ms;
        last_noted = pc.clock.Passed();
        timeline.push_back(std::to_string(halves / 2) + (halves % 2 != 0 ? ".5 " : ".0 ") + what);
    }
    DialResult DialNumber(std::string_view number = "0123", std::string_view initialisation = {})
    {
        return ModemDial(pc.workstation, port, buffer, initialisation, number);
    }
};

TEST_F(Dial, SendsEveryCommandAtItsTime)
{
    EXPECT_EQ(DialNumber(), kConnect);
    EXPECT_THAT(timeline, ElementsAre("3.5 AT$", "2.0 AT$", "2.0 ATZQ0E0V1X1$", "3.5 AT$",
                                      "2.0 AT$", "4.0 ATD0123$"));
    EXPECT_THAT(port.line_changes,
                ElementsAre("Handshaking 2", "RTS 0", "DTR 0", "RTS 1", "DTR 1"));
    // The result came after 5 s; the last pause is 2 s.
    EXPECT_GE(pc.clock.Passed(), 23900ms);
    EXPECT_LE(pc.clock.Passed(), 24900ms);
}

TEST_F(Dial, LinesMoveWithTheirPauses)
{
    std::vector<std::string> moves;
    std::size_t seen = 0;
    pc.clock.on_tick = [&] {
        for (; seen < port.line_changes.size(); ++seen)
            moves.push_back(std::to_string((pc.clock.Passed() + 250ms) / 500ms) + " " +
                            port.line_changes[seen]);
    };
    EXPECT_EQ(DialNumber(), kConnect);
    EXPECT_THAT(moves, ElementsAre("0 Handshaking 2", "2 RTS 0", "2 DTR 0", "6 RTS 1", "6 DTR 1"))
        << "in halves of a second";
}

struct NumberCase {
    const char* number;
    const char* sent;
};

TEST_F(Dial, NumberGetsAtdUnlessItHoldsOne)
{
    for (const NumberCase& c : {NumberCase{"0123", "ATD0123\r"},
                                {"ATDT0123", "ATDT0123\r"},
                                {"AT&K3ATDT0123", "AT&K3ATDT0123\r"},
                                {"T0123", "ATDT0123\r"},
                                {"atdt0123", "ATDatdt0123\r"},
                                {"", "ATD\r"}}) {
        answers[c.sent] = {{0ms, "BUSY\r"}};
        EXPECT_EQ(DialNumber(c.number), kBusy) << c.number;
        EXPECT_EQ(port.sent.back(), c.sent);
    }
}

struct ResultCase {
    const char* answer;
    DialResult result;
};

TEST_F(Dial, EveryAnswerHasItsResult)
{
    for (const ResultCase& c : {ResultCase{"\r\nCONNECT\r\n", kConnect},
                                {"\r\nNO CARRIER\r\n", kNoCarrier},
                                {"\r\nNO DIAL TONE\r\n", kNoDialTone},
                                {"\r\nBUSY\r\n", kBusy},
                                {"BUSY CONNECT\r", kConnect}}) {
        answers["ATD0123\r"] = {{20s, c.answer}};
        EXPECT_EQ(DialNumber(), c.result) << c.answer;
    }
}

TEST_F(Dial, EchoDoesNotDisturb)
{
    for (auto& [command, arrivals] : answers) arrivals.insert(arrivals.begin(), {0ms, command});
    EXPECT_EQ(DialNumber(), kConnect);
}

TEST_F(Dial, AnswersOfAModemThatEndsLinesWithCrAloneAreFound)
{
    answers = {{"AT\r", {{0ms, "AT\rOK\r"}}},
               {"ATZQ0E0V1X1\r", {{0ms, "OK\r"}}},
               {"ATD0123\r", {{3s, "CONNECT\r"}}}};
    EXPECT_EQ(DialNumber(), kConnect);
}

// The echo of the number, if E0 did not switch it off, takes the place of the first read: the next
// has a tenth of its time.
TEST_F(Dial, EchoOfTheNumberLeaves25SecondsForTheResult)
{
    answers["ATD0123\r"] = {{0ms, "ATD0123\r"}, {20s, "\r\nCONNECT\r\n"}};
    EXPECT_EQ(DialNumber(), kConnect);
    answers["ATD0123\r"] = {{0ms, "ATD0123\r"}, {30s, "\r\nCONNECT\r\n"}};
    EXPECT_EQ(DialNumber(), kNotConnected);
}

// While the modem still answers within the pause, its first CR does no harm: all has come when the
// buffer is read.
TEST_F(Dial, LoneCrFirstIsHarmlessWithinThePause)
{
    answers["AT\r"] = {{0ms, "\r"}, {500ms, "\nOK\r\n"}};
    EXPECT_EQ(DialNumber(), kConnect);
}

// Nothing but that CR is in the buffer: an empty line and an empty buffer are taken for silence,
// though the modem goes on to connect.
TEST_F(Dial, LoneCrFirstOfAModemWithoutLfEndsTheDialWait)
{
    answers = {{"AT\r", {{0ms, "OK\r"}}},
               {"ATZQ0E0V1X1\r", {{0ms, "OK\r"}}},
               {"ATD0123\r", {{3s, "\r"}, {3500ms, "CONNECT\r"}}}};
    EXPECT_EQ(DialNumber(), kNotConnected);
}

struct InitialisationCase {
    const char* name;
    int answered;  // commands that the modem answers before it falls silent
    int sent;
};

TEST_F(Dial, MissingOkIsAnInitError)
{
    for (const InitialisationCase& c : {InitialisationCase{"first AT", 0, 1},
                                        {"second AT", 1, 2},
                                        {"initialisation", 2, 3},
                                        {"third AT", 3, 4},
                                        {"fourth AT", 4, 5}}) {
        SCOPED_TRACE(c.name);
        timeline.clear();
        port.sent.clear();
        buffer.clear();
        // Without LF, so that the silence ends by itself.
        port.answer_to = [&](std::string_view) -> std::vector<testing::Arrival> {
            if (static_cast<int>(port.sent.size()) > c.answered) return {};
            return {{0ms, "OK\r"}};
        };
        EXPECT_EQ(DialNumber(), kModemInitError);
        EXPECT_EQ(static_cast<int>(port.sent.size()), c.sent);
    }
}

TEST_F(Dial, GivenInitialisationIsSentInItsPlaceAndHasItsOwnPause)
{
    answers["ATZ0\r"] = {{0ms, "\r\nOK\r\n"}};
    EXPECT_EQ(DialNumber("0123", "ATZ0"), kConnect);
    EXPECT_THAT(timeline, ElementsAre("3.5 AT$", "2.0 AT$", "2.0 ATZ0$", "1.5 AT$", "2.0 AT$",
                                      "4.0 ATD0123$"));
}

TEST_F(Dial, InitialisationMayTakeTenSeconds)
{
    answers["ATZQ0E0V1X1\r"] = {{11s, "\r\nOK\r\n"}};
    EXPECT_EQ(DialNumber(), kConnect);
}

TEST_F(Dial, ErrorToTheInitialisationIsNoOk)
{
    answers["ATZQ0E0V1X1\r"] = {{0ms, "ERROR\r"}};
    pc.dialog.present = false;
    EXPECT_EQ(DialNumber(), kModemInitError);
}

TEST_F(Dial, UnattendedSilenceIsNotConnectedAfter250Seconds)
{
    answers["ATD0123\r"] = {};
    pc.dialog.present = false;
    EXPECT_EQ(DialNumber(), kNotConnected);
    EXPECT_LE(pc.clock.Passed(), 17s + 252s + 3s);
}

TEST_F(Dial, EscapeDuringTheDialWaitIsNotConnected)
{
    answers["ATD0123\r"] = {};
    pc.dialog.answer_yes = true;
    pc.clock.on_tick = [this] {
        if (pc.clock.Passed() == 30s) pc.escape.pressed = true;
    };
    EXPECT_EQ(DialNumber(), kNotConnected);
    EXPECT_LE(pc.clock.Passed(), 34s);
}

TEST_F(Dial, EscapeBeforeTheNumberIsDialledSparesTheCall)
{
    pc.dialog.answer_yes = true;
    pc.clock.on_tick = [this] {
        if (pc.clock.Passed() == 4s) pc.escape.pressed = true;
    };
    EXPECT_EQ(DialNumber(), kModemInitError);
    EXPECT_EQ(port.sent, std::vector<std::string>{"AT\r"});
}

TEST_F(Dial, RefusedLineIsAnInitErrorAndNothingIsSent)
{
    for (const char* property : {"Handshaking", "RTS", "DTR"}) {
        port.refuses = property;
        EXPECT_EQ(DialNumber(), kModemInitError) << property;
        EXPECT_TRUE(port.sent.empty());
        EXPECT_EQ(port.LineError(), std::string(property) + ": rifiutato");
    }
}

TEST_F(Dial, SilentModemLeavesNoLineError)
{
    answers.clear();
    EXPECT_EQ(DialNumber(), kModemInitError);
    EXPECT_EQ(port.LineError(), "");
}

TEST_F(Dial, LostLineEndsTheDiallingAtOnce)
{
    answers["ATD0123\r"] = {};
    pc.clock.on_tick = [this] { port.line_lost = pc.clock.Passed() >= 20s; };
    EXPECT_EQ(DialNumber(), kNotConnected);
    EXPECT_LE(pc.clock.Passed(), 23s);
}

TEST_F(Dial, HangUpEscapesThenHangsUpThenDropsTheLines)
{
    answers.clear();
    ModemHangUp(pc.workstation, port);
    EXPECT_THAT(timeline, ElementsAre("0.5 +", "0.5 +", "0.5 +", "5.0 ATH$"));
    EXPECT_THAT(port.line_changes, ElementsAre("RTS 0", "DTR 0"));
    EXPECT_GE(pc.clock.Passed(), 8300ms);
    EXPECT_LE(pc.clock.Passed(), 8900ms);
}

TEST_F(Dial, HangUpOfAClosedPortSendsNothing)
{
    ASSERT_TRUE(port.SetPortOpen(false));
    ModemHangUp(pc.workstation, port);
    EXPECT_TRUE(port.sent.empty());
}

}  // namespace
}  // namespace orlo
