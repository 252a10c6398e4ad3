#include "tests/acquisition/serial_monitor_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(SerialMonitor, SilentTerminalIsAskedForNothingMore)
{
    Connect("Strale", "", {"*:silenzio"});
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_TRUE(Button("cmdMonitor").isEnabled());
}

TEST_F(SerialMonitor, SilenceBehindAModemThatWasNotDialledAsksForALogIn)
{
    Connect("Strale", "", {"*:silenzio"});
    Controls().CheckModem->setChecked(true);
    Read();
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus() + QStringLiteral(": fare Log-in"));
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    ReadAgain();
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
}

TEST_F(SerialMonitor, CountersOfAnotherTerminalAreNotUsed)
{
    Connect("Strale", "timbrature=25");
    Read();
    form.close();
    SelectAnother("Strale");
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_EQ(Label("LabelScaricate"), QString());
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(NoStatus()));
    EXPECT_EQ(Told(), ReceptionOk()) << "that of the first reading";
}

TEST_F(SerialMonitor, PortOfAnotherTerminalThatDoesNotOpenIsTheOutcome)
{
    Connect("Strale", "timbrature=25");
    Read();
    form.close();
    SelectAnother("Strale");
    pc.com1.device_missing = true;
    Read();
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore aprendo la COM"));
}

TEST_F(SerialMonitor, StatusThatTimedOutLeavesTheTerminalItsOwnCounters)
{
    Connect("Strale", "timbrature=25", {"32#2:silenzio"});
    Read();
    ReadAgain();
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:  25"));
    EXPECT_EQ(Lines().size(), 25);
    ExpectDoubt(NoStatus(), NoStatusTold());
}

TEST_F(SerialMonitor, BadFrameOfTheStatusIsToldAndReadByThePointer0)
{
    Connect("Strale", "timbrature=25", {"32#1:checksum-errato"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 20);
    ExpectDoubt(NoStatus(), NoStatusTold());
}

TEST_F(SerialMonitor, StatusWithoutCountersIsToldAndReadByThePointer0)
{
    Answering("Strale", {"COMANDO SCONOSCIUTO", Records(3), "END"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 3);
    ExpectDoubt(NoStatus(), NoStatusTold());
}

TEST_F(SerialMonitor, StatusTooShortForAPointerAsksForNothing)
{
    Answering("Strale", {"OK"});
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_TRUE(Told().isEmpty());
}

TEST_F(SerialMonitor, MissingBlockOfADoubtfulReadingIsToldToo)
{
    Connect("Strale", "timbrature=25", {"32#1:checksum-errato", "30*:silenzio"});
    Read();
    ExpectDoubt(
        NoStatus(),
        NoStatusTold() +
            QStringLiteral(" Di 2 blocchi di timbrature non è arrivata la risposta: la lista non è "
                           "completa, e numeri e stati dopo di essi non valgono."));
}

}  // namespace
}  // namespace orlo::testing
