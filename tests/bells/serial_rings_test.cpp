#include "tests/bells/ring_orlo_ii_fixture.h"
#include "tests/support/paint_count.h"

namespace orlo::testing
{
namespace
{

TEST_F(FrmRingOrloII, EveryLineIsSentToTheFirstFourModels)
{
    for (const char* model : {"Orlo II", "Strale", "Strale N", "Lumo"}) {
        const int opened = pc.com1.times_opened;
        Open(model);
        Press("cmdTrasmette");
        ASSERT_EQ(commands.size(), 32) << model;
        EXPECT_EQ(commands[0].toStdString(), "13 01 08 05 01111110 2 05");
        EXPECT_EQ(commands[3].toStdString(), "13 04 17 35 01111110 2 05");
        EXPECT_EQ(commands[4].toStdString(), "13 05 00 00 00000000 0 00");
        EXPECT_EQ(commands[31].toStdString(), "13 32 00 00 00000000 0 00");
        EXPECT_EQ(Terminal().Bells().Rings().size(), 4U);
        EXPECT_EQ(Status(), "Comunicazione OK");
        EXPECT_EQ(Outcome().toStdString(), "32/32 Comunicazione OK");
        EXPECT_EQ(pc.com1.times_opened - opened, 32) << "once for each telegram";
        EXPECT_FALSE(pc.com1.PortOpen());
        Press("cmdUscita");
    }
}

TEST_F(FrmRingOrloII, TelegramsAreSentByteForByte)
{
    Open();
    Press("cmdTrasmette");
    pc.dialog.answer_yes = true;
    Press("cmdReset");
    // STX, 128 + terminal, text, 128 + the 7-bit sum of all these, CR.
    EXPECT_EQ(pc.com1.sent.front(),
              "\x02\x84"
              "13 01 08 05 01111110 2 05\xF5\r");
    EXPECT_EQ(pc.com1.sent.back(),
              "\x02\x84"
              "14CLEAR\xD2\r");
    Press("cmdUscita");
    Open("OrloTre");
    Press("cmdTrasmette");
    EXPECT_EQ(pc.com1.sent.front(),
              "\x02\x84"
              "1301 08 05 01111110 2 005\x85\r");
}

TEST_F(FrmRingOrloII, LinesOnNoDayAreNotSentToOrloTreAndSuperStrale)
{
    for (const char* model : {"OrloTre", "SuperStrale"}) {
        Open(model);
        // A ring with a time and on no day.
        ClickLine(10);
        Type("Ring", "1000");
        Press("cmdAggiorna");
        Press("cmdTrasmette");
        EXPECT_EQ(commands.join(u'|').toStdString(),
                  "1301 08 05 01111110 2 005|1302 12 05 01111110 2 005|"
                  "1303 13 35 01111110 2 005|1304 17 35 01111110 2 005")
            << model;
        EXPECT_EQ(Terminal().Bells().Rings().size(), 4U);
        EXPECT_EQ(Outcome().toStdString(), "4/32 Comunicazione OK");
        EXPECT_EQ(Status(), "Comunicazione OK");
        Press("cmdUscita");
    }
}

TEST_F(FrmRingOrloII, WithoutRowsOrloIISends32TelegramsAndOrloTreNone)
{
    UseDatabase("nimbo-base-2000.mdb");
    Open("Orlo II");
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    Press("cmdUscita");
    Open("OrloTre");
    Press("cmdTrasmette");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(), "Comunicazione OK");
}

TEST_F(FrmRingOrloII, AFinishedSendIsThatInTheLineOfTheLastCommand)
{
    Open("OrloTre");
    Press("cmdTrasmette");
    EXPECT_EQ(Outcome().toStdString(), "4/32 Comunicazione OK");
    EXPECT_EQ(LastCommand(), "Invio suonerie, terminale 4: Comunicazione OK");
    Press("cmdUscita");

    UseDatabase("nimbo-base-2000.mdb");
    Controls().LabelUltimoComando->setText(QStringLiteral("08:00 un comando prima"));
    OpenBells("frmRingOrloII");
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 4) << "nothing more was sent";
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(StatusAndNote(), "Comunicazione OK (nessuna suoneria da inviare)");
    EXPECT_EQ(LastCommand(), "Invio suonerie, terminale 4: " + StatusAndNote());
}

TEST_F(FrmRingOrloII, WhatWasNotSavedIsNotSentAndThatIsSaid)
{
    Open();
    ClickLine(0);
    Type("Ring", "0915");
    Press("cmdTrasmette");
    EXPECT_EQ(commands[0].toStdString(), "13 01 08 05 01111110 2 05");
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(Unsaved(), "Modifiche non salvate, non inviate");
    EXPECT_EQ(LastCommand(),
              "Invio suonerie, terminale 4: Comunicazione OK, senza le modifiche non salvate");
}

TEST_F(FrmRingOrloII, TheOutcomeOfASendGoesWhenTheListChanges)
{
    Open();
    Press("cmdTrasmette");
    Press("Festivo");
    EXPECT_EQ(Status(), "Comunicazione OK") << "the list is still what was sent";
    Press("cmdAggiorna");
    EXPECT_EQ(Status(), "");
}

TEST_F(FrmRingOrloII, SendingStopsAtTheFirstTimeout)
{
    const struct {
        const char* model;
        int sent;
        std::size_t stored;  ///< rings that the terminal has by then
    } cases[] = {{"Orlo II", 1, 0},
                 {"Orlo II", 3, 2},
                 {"Lumo", 32, 4},
                 {"OrloTre", 1, 0},
                 {"SuperStrale", 4, 3}};
    for (const auto& [model, sent, stored] : cases) {
        Controls().ListaTerminali->clear();
        Open(model, {"13#" + std::to_string(sent) + ":richiesta-persa"});
        Press("cmdTrasmette");
        EXPECT_EQ(commands.size(), sent) << model;
        EXPECT_EQ(Status(), "Timeout") << model;
        EXPECT_EQ(Outcome(), QStringLiteral("Timeout")) << model;
        EXPECT_EQ(LastCommand(),
                  "Invio suonerie, terminale 4: Timeout (riga " + std::to_string(sent) + " di 32)");
        EXPECT_EQ(StatusAndNote(), "Timeout (riga " + std::to_string(sent) + " di 32)");
        EXPECT_FALSE(pc.com1.PortOpen()) << model;
        EXPECT_EQ(Terminal().Bells().Rings().size(), stored) << "what was sent stays";
        Press("cmdUscita");
    }
}

TEST_F(FrmRingOrloII, ABadFrameIsNotExaminedButToldBeside)
{
    Open("Orlo II", {"3:checksum-errato"});
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(StatusAndNote(), "Comunicazione OK (risposte 31 su 32)");
    EXPECT_EQ(LastCommand(), "Invio suonerie, terminale 4: " + StatusAndNote());
}

TEST_F(FrmRingOrloII, APortThatDoesNotOpenIsSaid)
{
    Open();
    pc.com1.device_missing = true;
    Press("cmdTrasmette");
    EXPECT_EQ(StatusAndNote(), "Errore aprendo la COM") << "no line was asked for anything";
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, AnOpenLineIsUsedAndLeftOpen)
{
    Open();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(FrmRingOrloII, TheLineOfAnotherPortIsNotUsed)
{
    Open();
    state.SessionPort = 2;
    Controls().Verde->show();
    Press("cmdTrasmette");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(),
              "Errore: è collegata la linea della COM 2, non quella di questo terminale.");
}

TEST_F(FrmRingOrloII, WithoutAPortNothingIsSentAndThatIsSaid)
{
    pc.dialog.answer_yes = true;
    Open();
    Controls().ComboPorta->setCurrentIndex(-1);
    for (const char* button : {"cmdTrasmette", "cmdReset"}) {
        Press(button);
        EXPECT_TRUE(commands.isEmpty()) << button;
        EXPECT_EQ(Status(), "Errore aprendo la COM") << button;
        EXPECT_EQ(Outcome().toStdString(), "Errore aprendo la COM") << button;
    }
}

TEST_F(FrmRingOrloII, TheOutcomeBeforeIsGoneFromTheWindowBeforeTheTerminalIsAsked)
{
    pc.dialog.answer_yes = true;
    Open("Orlo II", {"13#33:silenzio", "14#1:silenzio"});
    Press("cmdTrasmette");
    const PaintCount painted(Control("PannelloSuonerie"), [this] { return Status().empty(); });
    int painted_when_asked = 0;
    for (const int first : {33, 34}) {
        ASSERT_EQ(commands.size(), first - 1);
        DuringTelegram(first, [&] { painted_when_asked = painted.times; });
        const int before = painted.times;
        Press(first == 33 ? "cmdTrasmette" : "cmdReset");
        EXPECT_GT(painted_when_asked, before) << commands.last().toStdString();
        EXPECT_EQ(Status(), "Timeout");
    }
}

TEST_F(FrmRingOrloII, NothingReactsWhileRingsAreSentAndACloseFollows)
{
    Open();
    bool inert = true;
    const auto carry = pc.com1.answer_to;
    pc.com1.answer_to = [&](std::string_view request) {
        for (const char* button : {"cmdAggiorna", "cmdTrasmette", "cmdReset", "cmdUscita"})
            inert = inert && !Enabled(button);
        QTest::keyClick(bells, Qt::Key_Escape);
        const int row = List().currentRow();
        QTest::keyClick(&List(), Qt::Key_Down);
        inert = inert && List().currentRow() == row;
        const std::string entered = Text("Ring") + Text("TempoRings") + Days();
        for (const char* field : {"Ring", "TempoRings"}) {
            QTest::mouseClick(&Control(field), Qt::LeftButton);
            QTest::keyClicks(&Control(field), QStringLiteral("9"));
        }
        Press("Festivo");
        inert = inert && Text("Ring") + Text("TempoRings") + Days() == entered;
        bells->close();
        inert = inert && bells->isVisible();
        return carry(request);
    };
    Press("cmdTrasmette");
    EXPECT_TRUE(inert);
    EXPECT_EQ(commands.size(), 32);
    EXPECT_FALSE(bells->isVisible());
}

TEST_F(FrmRingOrloII, AProgramThatIsToEndWaitsForTheRunningRingOnly)
{
    Open("Orlo II", {"13*:checksum-errato"});
    DuringTelegram(3, [this] { window.close(); });
    int asked_to_leave = 0;
    QObject::connect(&window, &Contenitore::LeaveRequested, bells, [&] { ++asked_to_leave; });
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 3);
    EXPECT_EQ(Status(), "Invio interrotto.");
    EXPECT_EQ(LastCommand(), "Invio suonerie, terminale 4: Invio interrotto. (riga 4 di 32)");
    EXPECT_EQ(asked_to_leave, 1);
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(FrmRingOrloII, AnEndAskedForDuringTheLastRingLeavesTheSendDone)
{
    Open();
    DuringTelegram(32, [this] { window.close(); });
    Press("cmdTrasmette");
    EXPECT_EQ(Status(), "Comunicazione OK");
}

TEST_F(FrmRingOrloII, EscapeDoesNotStopASend)
{
    Open();
    DuringTelegram(3, [this] { pc.escape.pressed = true; });
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    EXPECT_TRUE(pc.dialog.asked.empty());
}

TEST_F(FrmRingOrloII, ALineThatDropsEndsTheSendAndIsSaid)
{
    Open();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    DuringTelegram(5, [this] { pc.com1.line_lost = true; });
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 5);
    EXPECT_EQ(Status(), "Errore: la linea è caduta. Premere Log-off.");
    EXPECT_EQ(LastCommand(),
              "Invio suonerie, terminale 4: Errore: la linea è caduta. Premere Log-off. (riga 6 di "
              "32)");
    EXPECT_TRUE(Enabled("cmdTrasmette"));
}

TEST_F(FrmRingOrloII, EscapeBehindACommandClosesAndNoPortIsHeld)
{
    Open();
    Press("cmdTrasmette");
    ASSERT_EQ(commands.size(), 32);
    QTest::keyClick(bells, Qt::Key_Escape);
    EXPECT_FALSE(bells->isVisible());
    EXPECT_FALSE(pc.com1.PortOpen());
}

}  // namespace
}  // namespace orlo::testing
