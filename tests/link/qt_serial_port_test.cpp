#include "link/qt_serial_port.h"

#include "link/exchange.h"
#include "link/serial_port_link.h"
#include "link/system_clock.h"
#include "tests/link/read_line_settings.h"
#include "tests/support/pseudo_terminal.h"
#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>
#include <sys/file.h>

#include <thread>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

class RealPort : public ::testing::Test
{
protected:
    testing::PseudoTerminal far_side;
    PortDevices devices{QString::fromStdString(far_side.SlaveName()),
                        {},
                        {},
                        QStringLiteral("/dev/there-is-no-such-port")};
    testing::FakeTrace trace;
    QtSerialPort port{devices, trace};
};

TEST_F(RealPort, OpensSendsReceivesAndCloses)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    EXPECT_TRUE(port.PortOpen());
    EXPECT_EQ(port.Settings(), "9600,n,8,1");

    port.Output(
        "\x02\x81"
        "03\xE6\r");
    EXPECT_EQ(far_side.Receive(6),
              "\x02\x81"
              "03\xE6\r");

    far_side.Send("\x01\xFF\r\n\x11\x13");
    port.WaitForInput(1000ms);
    EXPECT_EQ(port.InBufferCount(), 6U);
    EXPECT_EQ(port.Input(), "\x01\xFF\r\n\x11\x13");

    EXPECT_TRUE(CloseSerialPort(port));
    EXPECT_FALSE(port.PortOpen());
    EXPECT_FALSE(CloseSerialPort(port)) << "it is not open any more";
}

TEST_F(RealPort, EverySpeedOfTheListIsReallySet)
{
    for (const int speed : {1200, 2400, 4800, 9600, 14400, 19200, 38400}) {
        ASSERT_TRUE(OpenSerialPort(port, 1, SettingsText(speed))) << speed;
        EXPECT_EQ(testing::ReadLineSpeed(far_side.SlaveName()), speed);
        EXPECT_TRUE(CloseSerialPort(port));
    }
}

TEST_F(RealPort, RefusesWhatCannotBeOpened)
{
    EXPECT_FALSE(OpenSerialPort(port, 4, "9600,n,8,1")) << "no such device";
    EXPECT_FALSE(OpenSerialPort(port, 0, "9600,n,8,1"));
    EXPECT_FALSE(OpenSerialPort(port, 5, "9600,n,8,1"));
    for (const char* settings :
         {"", "9600", "0,n,8,1", "-1,n,8,1", "9600,e,7,1", "x,n,8,1", ",n,8,1"})
        EXPECT_FALSE(OpenSerialPort(port, 1, settings)) << settings;
    EXPECT_FALSE(port.PortOpen());
}

TEST_F(RealPort, RefusesADeviceThatAnotherProgramHolds)
{
    const int other = open(far_side.SlaveName().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    EXPECT_FALSE(OpenSerialPort(port, 1, "9600,n,8,1"));
    close(other);
    EXPECT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
}

TEST_F(RealPort, OpensAPortThatWasLeftOpen)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    EXPECT_TRUE(OpenSerialPort(port, 1, "19200,n,8,1"));
    EXPECT_EQ(port.Settings(), "19200,n,8,1");
}

TEST_F(RealPort, DiscardThrowsAwayWhatHasArrived)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    far_side.Send("old");
    port.DiscardInput();
    EXPECT_EQ(port.InBufferCount(), 0U);
}

TEST_F(RealPort, HangUpLosesTheLineUntilThePortIsOpenedAgain)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    far_side.HangUp();
    port.WaitForInput(200ms);
    EXPECT_TRUE(port.LineLost());
    EXPECT_TRUE(CloseSerialPort(port));

    testing::PseudoTerminal replugged;
    devices[0] = QString::fromStdString(replugged.SlaveName());
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    EXPECT_FALSE(port.LineLost());
}

TEST_F(RealPort, HangUpInTheMiddleOfAnExchangeEndsItAsATimeout)
{
    SystemClock clock;
    testing::FakeDialog dialog;
    testing::FakeEscape escape;
    Workstation workstation{clock, dialog, escape, trace, {&port, nullptr, nullptr, nullptr}};
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    std::thread terminal([this] {
        far_side.Receive(6);
        far_side.Send("\x01\x81");
        far_side.HangUp();
    });
    EXPECT_EQ(ExchangeTelegram(workstation, port, 1, "03"), "TIMEOUT");
    terminal.join();
    EXPECT_TRUE(port.LineLost());
}

TEST_F(RealPort, HandshakingIsSetAndEveryOpeningBeginsWithNone)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "14400,n,8,1"));
    EXPECT_FALSE(testing::HasRtsCts(far_side.SlaveName()));
    ASSERT_TRUE(port.SetHandshaking(kRtsCtsHandshaking));
    EXPECT_EQ(port.Handshaking(), 2);
    EXPECT_TRUE(testing::HasRtsCts(far_side.SlaveName()));
    EXPECT_EQ(testing::ReadLineSpeed(far_side.SlaveName()), 14400) << "the speed stays";

    EXPECT_TRUE(CloseSerialPort(port));
    EXPECT_EQ(port.Handshaking(), 0);
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    EXPECT_EQ(port.Handshaking(), 0);
    EXPECT_FALSE(testing::HasRtsCts(far_side.SlaveName()));
}

TEST_F(RealPort, HandshakingOfAnotherKindOrOfAClosedPortIsRefused)
{
    EXPECT_FALSE(port.SetHandshaking(kRtsCtsHandshaking));
    EXPECT_EQ(port.LineError(), "Handshaking: la porta è chiusa");
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    EXPECT_FALSE(port.SetHandshaking(1));
    EXPECT_EQ(port.LineError(), "Handshaking: valore 1 non previsto");
    EXPECT_TRUE(port.SetHandshaking(kNoHandshaking));
    EXPECT_EQ(port.LineError(), "");
}

TEST_F(RealPort, PseudoTerminalHasNoModemLinesAndThatIsNotedOnly)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    ASSERT_TRUE(port.SetHandshaking(kRtsCtsHandshaking));
    EXPECT_TRUE(port.SetRTSEnable(false));
    EXPECT_TRUE(port.SetDTREnable(true));
    EXPECT_EQ(port.LineError(), "");
    EXPECT_EQ(trace.notes, QStringList({QStringLiteral("COM1: la porta non ha la linea RTS"),
                                        QStringLiteral("COM1: la porta non ha la linea DTR")}));
}

TEST_F(RealPort, RefusedModemLineIsAFailureInTheSystemsWords)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    far_side.HangUp();
    EXPECT_FALSE(port.SetRTSEnable(false));
    EXPECT_EQ(port.LineError(), "RTS: Input/output error");
    EXPECT_EQ(trace.notes, QStringList(QStringLiteral("COM1, RTS: Input/output error")));
}

TEST_F(RealPort, WaitSleepsInsteadOfSpinning)
{
    ASSERT_TRUE(OpenSerialPort(port, 1, "9600,n,8,1"));
    timespec before{}, after{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &before);
    port.WaitForInput(300ms);
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &after);
    const double used = static_cast<double>(after.tv_sec - before.tv_sec) +
                        static_cast<double>(after.tv_nsec - before.tv_nsec) * 1e-9;
    EXPECT_LT(used, 0.1);
}

}  // namespace
}  // namespace orlo
