#include "link/exchange.h"

#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;
using testing::Arrival;

const std::string kOkAnswer =
    "\x01\x81"
    "OK\x9C\r";

class Exchange : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::ScriptedPort& port = pc.com1;

    void LineAnswers(const std::vector<Arrival>& arrivals)
    {
        port.answer_to = [arrivals](std::string_view) { return arrivals; };
    }
    std::string Send(std::string_view command = "03", int terminal = 1)
    {
        return ExchangeTelegram(pc.workstation, port, terminal, command);
    }
    std::string SendCountingTicks(int terminal = 1)
    {
        return ExchangeTelegramTicks(pc.workstation, port, terminal, "97STORE");
    }
};

TEST_F(Exchange, SendsTheFrameOfTheCommand)
{
    LineAnswers({{0ms, kOkAnswer}});
    EXPECT_EQ(Send(), "OK");
    EXPECT_EQ(port.sent, std::vector<std::string>{"\x02\x81"
                                                  "03\xE6\r"});
}

TEST_F(Exchange, AnswerInPiecesIsPutTogether)
{
    LineAnswers({{100ms,
                  "\x01\x81"
                  "O"},
                 {900ms, "K"},
                 {1900ms, "\x9C\r"}});
    EXPECT_EQ(Send(), "OK");
}

TEST_F(Exchange, SilenceIsATimeoutAfterTwoSeconds)
{
    EXPECT_EQ(Send(), "TIMEOUT");
    EXPECT_GE(pc.clock.Passed(), 1990ms);
    EXPECT_LE(pc.clock.Passed(), 2120ms);
}

TEST_F(Exchange, AnswerWithoutCrIsATimeout)
{
    LineAnswers({{0ms,
                  "\x01\x81"
                  "OK\x9C"}});
    EXPECT_EQ(Send(), "TIMEOUT");
}

TEST_F(Exchange, BadFrameIsRxErrorAtOnce)
{
    LineAnswers({{10ms,
                  "\x01\x81"
                  "OK\x9D\r"}});
    EXPECT_EQ(Send(), "RX ERROR");
    EXPECT_LT(pc.clock.Passed(), 100ms);
}

TEST_F(Exchange, WhatWaitedBeforeTheRequestIsThrownAway)
{
    port.Arrive(
        "\x01\x81"
        "XX\xB2\r");
    LineAnswers({{5ms, kOkAnswer}});
    EXPECT_EQ(Send(), "OK");
}

TEST_F(Exchange, LateAnswerIsNotTakenForTheNextOne)
{
    LineAnswers({{2500ms,
                  "\x01\x81"
                  "XX\xB2\r"}});
    EXPECT_EQ(Send(), "TIMEOUT");
    pc.clock.Advance(1000ms);
    LineAnswers({{5ms, kOkAnswer}});
    EXPECT_EQ(Send(), "OK");
}

TEST_F(Exchange, TerminalZeroIsNotWaitedFor)
{
    EXPECT_EQ(Send("03", 0), "");
    EXPECT_EQ(port.sent, std::vector<std::string>{"\x02\x80"
                                                  "03\xE5\r"});
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

TEST_F(Exchange, LostLineIsATimeoutAtOnce)
{
    port.line_lost = true;
    EXPECT_EQ(Send(), "TIMEOUT");
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

TEST_F(Exchange, AnswerThatCameWhileOtherWorkOverranIsTaken)
{
    LineAnswers({{50ms, kOkAnswer}});
    const auto slow_disk = [this] { pc.clock.Advance(5000ms); };
    EXPECT_EQ(ExchangeTelegram(pc.workstation, port, 1, "32", slow_disk), "OK");
}

TEST_F(Exchange, WaitThatSpansMidnightEndsWhenTheOperatorSaysSo)
{
    pc.clock.SetTimeOfDay(QTime(23, 59, 59));
    pc.dialog.answer_yes = true;
    pc.clock.on_tick = [this] { pc.escape.pressed = pc.clock.Passed() >= 15s; };
    EXPECT_EQ(Send(), "TIMEOUT");
    EXPECT_GE(pc.clock.Passed(), 15s);
    EXPECT_LE(pc.clock.Passed(), 17s);
}

TEST_F(Exchange, WaitThatSpansMidnightEndsByItselfUnattended)
{
    pc.clock.SetTimeOfDay(QTime(23, 59, 59));
    pc.dialog.present = false;
    EXPECT_EQ(Send(), "TIMEOUT");
    EXPECT_GE(pc.clock.Passed(), 12s);
    EXPECT_LE(pc.clock.Passed(), 14s);
}

TEST_F(Exchange, TickCountedWaitLasts101StepsOfTheClock)
{
    EXPECT_EQ(SendCountingTicks(), "TIMEOUT");
    EXPECT_GE(pc.clock.Passed(), 5450ms);  // 101 / 18.2 s = 5.549 s, the first step may be short
    EXPECT_LE(pc.clock.Passed(), 5650ms);
}

TEST_F(Exchange, TickCountedWaitTakesAnAnswerAfterFiveSeconds)
{
    LineAnswers({{5000ms, kOkAnswer}});
    EXPECT_EQ(SendCountingTicks(), "OK");
}

TEST_F(Exchange, TickCountedWaitPassesMidnight)
{
    pc.clock.SetTimeOfDay(QTime(23, 59, 58));
    EXPECT_EQ(SendCountingTicks(), "TIMEOUT");
    EXPECT_LE(pc.clock.Passed(), 5700ms);
}

TEST_F(Exchange, TickCountedWaitDoesNotWaitForTerminalZero)
{
    EXPECT_EQ(SendCountingTicks(0), "");
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

}  // namespace
}  // namespace orlo
