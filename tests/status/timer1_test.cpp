#include "link/qt_serial_port.h"
#include "link/system_clock.h"
#include "status/legge_data_ora.h"
#include "status/test.h"
#include "tests/support/connected_window.h"
#include "tests/support/pseudo_terminal.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace orlo::testing
{
namespace
{

class Timer1Test : public ConnectedWindow
{
protected:
    QTimer* timer = window.findChild<QTimer*>(QStringLiteral("Timer1"));
    int ticks = 0;

    void SetUp() override
    {
        ConnectedWindow::SetUp();
        ASSERT_NE(timer, nullptr);
        QObject::connect(timer, &QTimer::timeout, &window, [this] { ++ticks; });
        window.SetPeriodicRead([this] { Timer1_Timer(window); });
        window.show();
    }

    void Prepare() { window.PrepareCurrentTerminal(); }

    /// Lets the timer fire three times, faster than in daily life.
    void WaitForTicks()
    {
        timer->setInterval(1);
        const int last = ticks + 3;
        ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= last; }));
    }
};

TEST_F(Timer1Test, FiresEverySecondFromTheStart)
{
    EXPECT_EQ(timer->interval(), 1000);
    EXPECT_TRUE(timer->isActive());
    EXPECT_FALSE(timer->isSingleShot());
}

TEST_F(Timer1Test, SendsNothingBeforeATerminalWasPrepared)
{
    Connect(QStringLiteral("Strale"));
    WaitForTicks();
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_EQ(Outcome(), QString());
}

TEST_F(Timer1Test, ReadsThePreparedTerminalEveryTime)
{
    Connect(QStringLiteral("Strale"), "scarto=2");
    Prepare();
    WaitForTicks();
    EXPECT_GE(commands.size(), 3);
    EXPECT_EQ(commands.count(QStringLiteral("03")), commands.size());
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Controls().OraTerminale->text(), QStringLiteral("08:00:02"));
    EXPECT_EQ(Controls().LabelScarto->text(), QStringLiteral("+2 s"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(Timer1Test, ReadsItByTheModelThatItHadWhenAnotherIsSelected)
{
    Connect(QStringLiteral("OrloTre"));
    Register(5, QStringLiteral("Strale"));
    Prepare();
    window.SelectTerminalLine(1);
    WaitForTicks();
    EXPECT_EQ(Controls().DataTerminale->text(), QStringLiteral("05/03/26"));
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale 4:"));
    EXPECT_TRUE(Controls().LabelOrologio->font().bold());
}

TEST_F(Timer1Test, DoesNothingForOrloAndSipa)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(QStringLiteral("Strale"));
        Register(kTerminal, QString::fromLatin1(model));
        window.SelectTerminalLine(1);
        Prepare();
        WaitForTicks();
        EXPECT_TRUE(commands.isEmpty()) << model;
    }
}

TEST_F(Timer1Test, SendsNothingToAModemWithoutACall)
{
    Connect(QStringLiteral("Strale"));
    Controls().CheckModem->setChecked(true);
    Prepare();
    Controls().PannelloComunicazione->setText(QStringLiteral("Modem Line Busy"));
    WaitForTicks();
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_EQ(Outcome(), QStringLiteral("Modem Line Busy"));
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    WaitForTicks();
    EXPECT_FALSE(commands.isEmpty());
}

TEST_F(Timer1Test, ClosesThePortThatATestLeftOpenBehindAModemWithoutACall)
{
    Connect(QStringLiteral("Strale"), {}, {"*:silenzio"});
    Controls().CheckModem->setChecked(true);
    cmdTest_Click(window);
    ASSERT_TRUE(pc.com1.PortOpen());
    WaitForTicks();
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(Timer1Test, ReadsNoTerminalThatWasSavedAsInactive)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    Controls().Abilitazione->click();
    Controls().cmdAggiorna->click();
    WaitForTicks();
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(Timer1Test, SaysWhoseClockIsNotAnswering)
{
    Connect(QStringLiteral("Strale"), {}, {"*:silenzio"});
    Register(5, QStringLiteral("Strale"));
    Prepare();
    window.SelectTerminalLine(1);
    WaitForTicks();
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale 4:"));
    EXPECT_EQ(Controls().OraTerminale->text(), QString());
}

TEST_F(Timer1Test, DoesNothingWhileACommandRuns)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    window.RunCommand(Controls().cmdUscita, QStringLiteral("Prova in corso…"), EscapeUse::Ignored,
                      [this] {
                          const QStringList before = commands;
                          WaitForTicks();
                          EXPECT_EQ(commands, before);
                      });
    WaitForTicks();
    EXPECT_FALSE(commands.isEmpty());
}

TEST_F(Timer1Test, IsStartedAnewBehindACommand)
{
    window.RunCommand(Controls().cmdUscita, QStringLiteral("Prova in corso…"), EscapeUse::Ignored,
                      [this] { timer->stop(); });
    EXPECT_TRUE(timer->isActive());
}

TEST_F(Timer1Test, DoesNothingWhileAnotherWindowWaits)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    const QStringList before = commands;
    WaitForTicks();
    EXPECT_EQ(commands, before);
}

TEST_F(Timer1Test, DoesNothingWhileTheLineOfAnotherPortIsHeld)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    ASSERT_TRUE(pc.com2.SetPortOpen(true));
    state.SessionPort = 2;
    Controls().Verde->show();
    Controls().PannelloComunicazione->setText(QStringLiteral("Modem Log In"));
    WaitForTicks();
    EXPECT_TRUE(pc.com1.sent.empty() && pc.com2.sent.empty());
    EXPECT_EQ(pc.com1.times_opened, 0);
    EXPECT_TRUE(pc.com2.PortOpen());
    EXPECT_EQ(Outcome(), QStringLiteral("Modem Log In"));
}

TEST_F(Timer1Test, ReadsOverTheHeldLineOfItsOwnPortAndLeavesItOpen)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    WaitForTicks();
    EXPECT_FALSE(commands.isEmpty());
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(Timer1Test, DoesNothingWhileAMessageBoxIsOpen)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    QMessageBox box(&window);
    box.open();
    WaitForTicks();
    EXPECT_TRUE(commands.isEmpty());
    box.close();
    WaitForTicks();
    EXPECT_FALSE(commands.isEmpty());
}

TEST_F(Timer1Test, DoesNothingWhileAChoiceListIsOpen)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    Controls().ComboVelocita->showPopup();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    WaitForTicks();
    EXPECT_TRUE(commands.isEmpty());
    Controls().ComboVelocita->hidePopup();
    WaitForTicks();
    EXPECT_FALSE(commands.isEmpty());
}

TEST_F(Timer1Test, TimeOutLeavesTheDisplaysAndClosesThePort)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    Timer1_Timer(window);
    pc.com1.answer_to = nullptr;
    Timer1_Timer(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Controls().OraTerminale->text(), QStringLiteral("08:00:00"));
    EXPECT_EQ(Controls().DataTerminale->text(), QStringLiteral("Gio 05/03/26"));
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale 4:"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(Timer1Test, DoesNothingWhileTheWindowIsNotShown)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    window.hide();
    WaitForTicks();
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(Timer1Test, BeginsNoWaitThatWouldSpanMidnight)
{
    Connect(QStringLiteral("Strale"));
    Prepare();
    pc.clock.SetTimeOfDay(QTime(23, 59, 55, 100));
    Timer1_Timer(window);
    EXPECT_TRUE(commands.isEmpty());
    pc.clock.SetTimeOfDay(QTime(23, 59, 54));
    Timer1_Timer(window);
    EXPECT_EQ(commands, QStringList{QStringLiteral("03")});
}

TEST_F(Timer1Test, LeavesTheOutcomeOfTheLastCommandInItsOwnLine)
{
    Connect(QStringLiteral("Strale"), {}, {"2*:silenzio"});
    window.RunCommand(Controls().cmdLeggeOra, QStringLiteral("Lettura dell'ora in corso…"),
                      EscapeUse::Ignored, [this] { cmdLeggeOra_Click(window); });
    const QString line_text =
        QStringLiteral("08:00:00 Lettura dell'ora, terminale 4: Comunicazione OK");
    EXPECT_EQ(Controls().LabelUltimoComando->text(), line_text);
    pc.com1.answer_to = nullptr;
    WaitForTicks();
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Controls().LabelUltimoComando->text(), line_text);
}

/// With the PC's own clock and a line on which nobody answers.
class Timer1OnASilentLine : public ::testing::Test
{
protected:
    const PseudoTerminal silent;
    PortDevices devices{QString::fromStdString(silent.SlaveName())};
    SystemClock clock;
    FakeDialog dialog;
    FakeEscape escape;
    NoTrace trace;
    QtSerialPort port{devices, trace};
    Workstation station{clock, dialog, escape, trace, {&port}};
    ProgramState state;
    Contenitore window{state, station};
    /// What an operator does just as a read begins.
    QTimer click;

    int reads = 0;
    int turns = 0;
    std::chrono::milliseconds start_of_last{0};
    std::chrono::milliseconds end_of_last{0};
    std::chrono::milliseconds shortest_rest{1'000'000};
    std::chrono::milliseconds longest_wait{0};

    void SetUp() override
    {
        state.CurrentModel = ModelByName(QStringLiteral("Strale"));
        state.CurrentPort = 1;
        state.CurrentSpeed = 9600;
        state.CurrentTerminalNumber = 4;
        click.setSingleShot(true);
        QObject::connect(&click, &QTimer::timeout, &window, [this] { TakeTurn(); });
        window.SetPeriodicRead([this] { Read(); });
        window.show();
    }

    void Read()
    {
        start_of_last = clock.Monotonic();
        if (reads++ > 0) shortest_rest = std::min(shortest_rest, start_of_last - end_of_last);
        click.start(0);
        Timer1_Timer(window);
        end_of_last = clock.Monotonic();
    }
    void TakeTurn()
    {
        longest_wait = std::max(longest_wait, clock.Monotonic() - start_of_last);
        ++turns;
    }
};

TEST_F(Timer1OnASilentLine, LeavesTheOperatorATurnBetweenTwoReads)
{
    ASSERT_TRUE(QTest::qWaitFor([this] { return turns >= 3; }, 20'000));
    EXPECT_EQ(reads, turns);
    EXPECT_GE(shortest_rest.count(), 900) << "a whole interval between two reads";
    EXPECT_GE(longest_wait.count(), 1900) << "a read ought to have timed out";
    EXPECT_EQ(window.Controls().PannelloComunicazione->text(), QStringLiteral("Timeout"));
}

}  // namespace
}  // namespace orlo::testing
