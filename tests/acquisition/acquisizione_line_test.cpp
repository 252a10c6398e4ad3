// The port of an acquisition: opened, held, refused, lost; and what stops it.

#include "tests/acquisition/acquisition_fixture.h"

namespace orlo
{
namespace
{

class AcquisitionLine : public testing::AcquisitionTest
{
};

TEST_F(AcquisitionLine, EscapeStopsBetweenTwoExchanges)
{
    Connect("Strale", "timbrature=30");
    pc.dialog.answer_yes = true;
    QObject::connect(window.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window,
                     [&](int value) { pc.escape.pressed = value < 100 && value > 0; });
    EXPECT_FALSE(Acquire().done);
    const auto written = PunchLines().size();
    EXPECT_GT(written, 0);
    EXPECT_LT(written, 30);
    EXPECT_FALSE(pc.com1.PortOpen());

    pc.dialog.answer_yes = false;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 30) << "the stored answer is acknowledged by the next run";
}

TEST_F(AcquisitionLine, EscapeAnsweredNoGoesOn)
{
    Connect("Strale", "timbrature=30");
    pc.escape.pressed = true;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(PunchLines().size(), 30);
}

TEST_F(AcquisitionLine, MissingPortIsShownAndTheFileMadeAllTheSame)
{
    Connect("Strale", "timbrature=5");
    pc.com1.device_missing = true;
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_FALSE(state.SerialPortOk);
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(AcquisitionLine, PortIsOpenedWithTheSettingsAndClosed)
{
    Connect("Strale", "timbrature=5");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(pc.com1.Settings(), "9600,n,8,1");
    EXPECT_EQ(pc.com1.times_opened, 2) << "once for the status, once for the punches";
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(state.SerialPortOk) << "the last close succeeded";
}

TEST_F(AcquisitionLine, OpenModemLineIsUsedAsItIs)
{
    Connect("Strale", "timbrature=5");
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    window.Controls().Verde->show();
    state.SessionPort = 1;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(AcquisitionLine, LineOfAnotherPortIsTheReasonOfTheRefusal)
{
    Connect("Strale", "timbrature=5");
    window.Controls().Verde->show();
    state.SessionPort = 2;
    state.TrInMemory = "00005";
    const QString reason =
        QStringLiteral("Errore: è collegata la linea della COM 2, non quella di questo terminale.");
    EXPECT_EQ(LastCommand(), QStringLiteral("Prova, terminale 4: ") + reason);
    EXPECT_EQ(Acquire().reason, reason);
    EXPECT_EQ(Outcome(), reason);
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(AcquisitionLine, FallenLineIsTheReasonOfTheRefusal)
{
    Connect("Strale", "timbrature=5");
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    window.Controls().Verde->show();
    state.SessionPort = 1;
    pc.com1.line_lost = true;
    const QString reason = QStringLiteral("Errore: la linea è caduta. Premere Log-off.");
    EXPECT_EQ(LastCommand(), QStringLiteral("Prova, terminale 4: ") + reason);
    EXPECT_EQ(Acquire().reason, reason);
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(AcquisitionLine, TerminalWithoutAPortEndsLikeAPortThatDoesNotOpen)
{
    Connect("Strale", "timbrature=5");
    window.Controls().ComboPorta->Show(QString());
    EXPECT_EQ(Acquire().reason, QStringLiteral("Errore aprendo la COM"));
    EXPECT_EQ(Outcome(), QString());
}

TEST_F(AcquisitionLine, LostLineEndsTheCommandAndTheNextOneOpensAgain)
{
    Connect("Strale", "timbrature=25", {"33#2:caduta=300"});
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_FALSE(pc.com1.PortOpen());

    line->HangUp();
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

}  // namespace
}  // namespace orlo
