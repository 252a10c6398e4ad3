#include "link/modem_line.h"

#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

class ModemLine : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    testing::ScriptedPort& port = pc.com1;
    std::string buffer;

    void SetUp() override { ASSERT_TRUE(port.SetPortOpen(true)); }

    std::string ReadLine(std::int16_t& timeout)
    {
        return ModemReadLine(pc.workstation, port, buffer, timeout);
    }
    std::string ReadLine()
    {
        std::int16_t timeout = 30;
        return ReadLine(timeout);
    }
};

TEST_F(ModemLine, LfBecomesABlankAndTheRestStaysForTheNextLine)
{
    port.Arrive("OK\n\rNEXT");
    EXPECT_EQ(ReadLine(), "OK ");
    EXPECT_EQ(buffer, "NEXT");
}

TEST_F(ModemLine, LeftoversComeFirst)
{
    buffer = "CON";
    port.Arrive("NECT\r");
    EXPECT_EQ(ReadLine(), "CONNECT");
}

TEST_F(ModemLine, TimeoutShrinksWithEveryRead)
{
    std::int16_t timeout = 30;
    EXPECT_EQ(ReadLine(timeout), "");
    EXPECT_EQ(timeout, 3);
    EXPECT_GE(pc.clock.Passed(), 3000ms);
    EXPECT_LE(pc.clock.Passed(), 3120ms);

    for (int read = 0; read < 2; ++read) {
        const auto before = pc.clock.Passed();
        EXPECT_EQ(ReadLine(timeout), "");
        EXPECT_EQ(timeout, 0);
        EXPECT_LE(pc.clock.Passed() - before, 60ms) << "only until the clock next changes";
    }
}

TEST_F(ModemLine, TimeoutIsRoundedHalfToEven)
{
    for (const auto& [tenths, seconds] : {std::pair{25, 2}, {35, 4}, {15, 2}, {5, 0}, {100, 10}}) {
        auto timeout = static_cast<std::int16_t>(tenths);
        port.Arrive("X\r");
        EXPECT_EQ(ReadLine(timeout), "X");
        EXPECT_EQ(timeout, seconds) << tenths;
    }
}

TEST_F(ModemLine, CompleteLineIsReturnedWithATimeoutOfZero)
{
    buffer = "OK\r";
    std::int16_t timeout = 0;
    EXPECT_EQ(ReadLine(timeout), "OK");
}

TEST_F(ModemLine, LineWithoutCrStaysInTheBuffer)
{
    port.Arrive("RING");
    EXPECT_EQ(ReadLine(), "");
    EXPECT_EQ(buffer, "RING");
}

TEST_F(ModemLine, SendThrowsAwayWhatWaits)
{
    port.Arrive("OLD");
    ModemSend(port, "AT\r");
    EXPECT_EQ(port.sent, std::vector<std::string>{"AT\r"});
    EXPECT_EQ(port.Input(), "");
}

TEST_F(ModemLine, SendDoesNothingWhileThePortIsClosed)
{
    ASSERT_TRUE(port.SetPortOpen(false));
    ModemSend(port, "AT\r");
    EXPECT_TRUE(port.sent.empty());
}

}  // namespace
}  // namespace orlo
