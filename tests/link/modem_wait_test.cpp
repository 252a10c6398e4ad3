#include "link/modem_wait.h"

#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

class ModemWait : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::ScriptedPort& port = pc.com1;
    std::string buffer;
    std::int16_t timeout = 30;

    void SetUp() override { ASSERT_TRUE(port.SetPortOpen(true)); }

    bool WaitForOk() { return ModemWaitFor(pc.workstation, port, buffer, "OK", timeout); }
    std::int16_t WaitForResult()
    {
        return ModemWaitForAny(pc.workstation, port, buffer,
                               {"CONNECT", "NO CARRIER", "NO DIAL TONE", "BUSY"}, timeout);
    }
    /// A short press of Escape, that long from now.
    void PressEscapeAfter(std::chrono::milliseconds time)
    {
        pc.clock.on_tick = [this, time] {
            if (pc.clock.Passed() == time) pc.escape.pressed = true;
        };
    }
};

struct OkCase {
    const char* name;
    const char* buffer;
    const char* received;
    bool found;
    const char* left;
};

// clang-format off
const OkCase kOkCases[] = {
    {"between CR LF pairs",         "",   "\r\nOK\r\n",          true,  " "},
    {"behind the LF of the last",   " ",  "\r\nOK\r\n",          true,  " "},
    {"behind the echo",             "",   "AT\r\r\nOK\r\n",      true,  " "},
    {"in small letters",            "",   "ok\r",                true,  ""},
    {"anywhere in a line",          "",   "xxOKxx\r",            true,  ""},
    {"begun before",                "O",  "K\r",                 true,  ""},
    {"complete before",             "OK\r", "",                  true,  ""},
    {"the rest stays",              "",   "OK\rRING\r",          true,  "RING\r"},
    {"behind another line",         "",   "RING\rOK\r",          true,  ""},
    {"a line without OK",           "",   "ERROR\r",             false, ""},
    {"nothing",                     "",   "",                    false, ""},
    // The line before the CR is empty and nothing is left: that ends the wait, whatever comes next.
    {"a lone CR",                   "",   "\r",                  false, ""},
    {"a lone CR behind a LF",       " ",  "\r",                  false, ""},
};
// clang-format on

TEST_F(ModemWait, OkIsFoundInALine)
{
    for (const OkCase& c : kOkCases) {
        SCOPED_TRACE(c.name);
        buffer = c.buffer;
        timeout = 30;
        port.Arrive(c.received);
        EXPECT_EQ(WaitForOk(), c.found);
        EXPECT_EQ(buffer, c.left);
    }
}

// The rest of the answer is a tenth of a second away, and is not waited for.
TEST_F(ModemWait, LoneCrBeforeTheAnswerEndsTheWait)
{
    port.Arrive("\r");
    port.Arrive("\nOK\r\n", 100ms);
    EXPECT_FALSE(WaitForOk());
    EXPECT_LE(pc.clock.Passed(), 60ms);
}

// A LF left over from the answer before makes the line of a lone CR a blank, which is not empty:
// the wait goes on, with a tenth of its time.
TEST_F(ModemWait, LoneCrBehindALeftoverIsReadOn)
{
    buffer = " ";
    timeout = 2500;
    port.Arrive("\r");
    port.Arrive("\nCONNECT\r\n", 20s);
    EXPECT_EQ(WaitForResult(), 0);
}

TEST_F(ModemWait, OnlyTheFirstReadWaitsTheFullTime)
{
    EXPECT_FALSE(WaitForOk());
    EXPECT_EQ(timeout, 3);
    EXPECT_GE(pc.clock.Passed(), 3000ms);
    EXPECT_LE(pc.clock.Passed(), 3120ms);
}

// 10 s for the first line; 1 s for the second, which is not complete then; from there on a step of
// the clock each, as long as something without a CR is there.
TEST_F(ModemWait, LaterReadsWaitATenthEach)
{
    timeout = 100;
    port.Arrive("RING\rR", 1s);
    port.Arrive("\r", 2500ms);
    EXPECT_FALSE(WaitForOk());
    EXPECT_EQ(timeout, 0);
    EXPECT_GE(pc.clock.Passed(), 2500ms) << "an incomplete line keeps the wait going";
    EXPECT_LE(pc.clock.Passed(), 2700ms);
}

struct ResultCase {
    const char* name;
    const char* received;
    int result;
};

// clang-format off
const ResultCase kResultCases[] = {
    {"CONNECT",                        "\r\nCONNECT 9600\r\n",     0},
    {"NO CARRIER",                     "\r\nNO CARRIER\r\n",       1},
    {"NO DIAL TONE",                   "\r\nNO DIAL TONE\r\n",     2},
    {"BUSY",                           "\r\nBUSY\r\n",             3},
    {"small letters",                  "no carrier\r",             1},
    {"CONNECT and BUSY in one line",   "BUSY CONNECT\r",           0},
    {"two lines: the first counts",    "BUSY\rCONNECT\r",          3},
    {"behind another line",            "RINGING\rBUSY\r",          3},
    {"another spelling is another text", "NO DIALTONE\r",          5},
    {"nothing",                        "",                         5},
};
// clang-format on

TEST_F(ModemWait, FirstTextInTheirOrderIsTheResult)
{
    for (const ResultCase& c : kResultCases) {
        SCOPED_TRACE(c.name);
        buffer.clear();
        timeout = 30;
        port.Arrive(c.received);
        EXPECT_EQ(WaitForResult(), c.result);
    }
}

TEST_F(ModemWait, SilenceLasts250SecondsAfterAnEmptyBuffer)
{
    timeout = 2500;
    EXPECT_EQ(WaitForResult(), 5);
    EXPECT_GE(pc.clock.Passed(), 250s);
    EXPECT_LE(pc.clock.Passed(), 251s);
}

// 250 s, 25 s, 2 s, and from then on a step of the clock each time, until the operator has enough.
TEST_F(ModemWait, SilenceAfterALeftoverLfLastsUntilTheOperatorEndsIt)
{
    buffer = " ";
    timeout = 2500;
    pc.dialog.answer_yes = true;
    PressEscapeAfter(20min);
    EXPECT_EQ(WaitForResult(), 5);
    EXPECT_EQ(buffer, " ");
    EXPECT_GE(pc.clock.Passed(), 20min);
    EXPECT_LE(pc.clock.Passed(), 20min + 1100ms);
}

TEST_F(ModemWait, EscapeEndsTheFirstReadWithinASecond)
{
    timeout = 2500;
    pc.dialog.answer_yes = true;
    PressEscapeAfter(10s);
    EXPECT_EQ(WaitForResult(), 5);
    ASSERT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(pc.dialog.asked[0].text, QStringLiteral("Si desidera interrompere la procedura?"));
    EXPECT_LE(pc.clock.Passed(), 11100ms);
}

TEST_F(ModemWait, EscapeFromThePauseBeforeIsSeenAtOnce)
{
    pc.dialog.answer_yes = true;
    pc.escape.pressed = true;
    port.Arrive("OK\r");
    EXPECT_FALSE(WaitForOk());
    EXPECT_EQ(pc.clock.Passed(), 0ms);
}

TEST_F(ModemWait, NoToTheQuestionGoesOnWaiting)
{
    timeout = 2500;
    PressEscapeAfter(10s);
    port.Arrive("CONNECT\r", 30s);
    EXPECT_EQ(WaitForResult(), 0);
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
}

TEST_F(ModemWait, UnattendedEndsAtItsFullTimeByItself)
{
    for (const char* leftover : {"", " ", "x"}) {
        buffer = leftover;
        timeout = 2500;
        pc.dialog.present = false;
        const auto before = pc.clock.Passed();
        EXPECT_EQ(WaitForResult(), 5);
        EXPECT_GE(pc.clock.Passed() - before, 250s) << leftover;
        EXPECT_LE(pc.clock.Passed() - before, 252s) << leftover;
    }
}

TEST_F(ModemWait, UnattendedEndsAcrossMidnightToo)
{
    buffer = " ";
    timeout = 2500;
    pc.dialog.present = false;
    pc.clock.SetTimeOfDay(QTime(23, 59, 0));
    EXPECT_EQ(WaitForResult(), 5);
    EXPECT_LE(pc.clock.Passed(), 252s);
}

// 250 s, 25 s, 2 s, 0 s for a line each.
TEST_F(ModemWait, EveryOtherLineShortensTheWait)
{
    timeout = 2500;
    for (const auto second : {10s, 20s, 21s}) port.Arrive("RINGING\r", second);
    EXPECT_EQ(WaitForResult(), 5);
    EXPECT_GE(pc.clock.Passed(), 21s);
    EXPECT_LE(pc.clock.Passed(), 21100ms);
}

TEST_F(ModemWait, UnattendedEndsThoughTheModemTalksOn)
{
    timeout = 2500;
    pc.dialog.present = false;
    pc.clock.on_tick = [this] { port.Arrive("x y\rz"); };
    EXPECT_EQ(WaitForResult(), 5);
    EXPECT_GE(pc.clock.Passed(), 250s);
    EXPECT_LE(pc.clock.Passed(), 252s);
}

TEST_F(ModemWait, LostLineIsNoAnswer)
{
    for (const char* leftover : {"", " "}) {
        buffer = leftover;
        timeout = 2500;
        port.line_lost = true;
        const auto before = pc.clock.Passed();
        EXPECT_EQ(WaitForResult(), 5);
        EXPECT_EQ(pc.clock.Passed(), before);
    }
}

}  // namespace
}  // namespace orlo
