#include "registry/modem_session.h"
#include "tests/acquisition/modem_line.h"
#include "tests/acquisition/serial_monitor_fixture.h"

namespace orlo::testing
{
namespace
{

/// The monitor of a terminal behind a simulated modem.
class MonitorByModem : public SerialMonitor
{
protected:
    ModemLine modem{pc};

    void SetUp() override
    {
        SerialMonitor::SetUp();
        Connect("Strale", "timbrature=25");
        Controls().CheckModem->setChecked(true);
        Controls().NumeroTelefono->setText(QStringLiteral("0123"));
        modem.PutBefore(*line);
    }
};

TEST_F(MonitorByModem, MemoryIsListedOverTheCallThatStaysOpen)
{
    LogIn_Click(window);
    ASSERT_TRUE(window.LineIsOpen()) << Outcome().toStdString();
    Read();
    EXPECT_EQ(Lines().size(), 25);
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_EQ(pc.dialog.told[0].informative, QString());
    EXPECT_TRUE(window.LineIsOpen());
    EXPECT_TRUE(modem.commands.filter(QStringLiteral("ATH")).isEmpty());
    // The operator takes a second to press the button: the silence before the escape.
    pc.clock.Advance(std::chrono::seconds(1));
    LogOff_Click(window);
    modem.PortClosed();
    EXPECT_EQ(modem.commands.filter(QStringLiteral("ATH")).size(), 1);
}

TEST_F(MonitorByModem, ModemThatWasNotDialledIsToldByTheHint)
{
    Read();
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus() + QStringLiteral(": fare Log-in"));
}

}  // namespace
}  // namespace orlo::testing
