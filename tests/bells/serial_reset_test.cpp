#include "tests/bells/ring_orlo_ii_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(FrmRingOrloII, ResetClearsTheTerminalAndTheListAndNotTheTable)
{
    Open();
    Press("cmdTrasmette");
    commands.clear();
    pc.dialog.answer_yes = true;
    Press("cmdReset");
    ASSERT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(pc.dialog.asked[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.asked[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.asked[0].text, QStringLiteral("Si desidera azzerare le suonerie?"));
    EXPECT_FALSE(pc.dialog.asked[0].when_ending);
    EXPECT_EQ(commands.join(u'|'), QStringLiteral("14CLEAR"));
    EXPECT_TRUE(Terminal().Bells().Rings().empty());
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_EQ(Exported(), std::string(kTerminal1) + kTerminal4);
}

TEST_F(FrmRingOrloII, AResetAnsweredByABadFrameIsToldBeside)
{
    pc.dialog.answer_yes = true;
    Open("Orlo II", {"14*:checksum-errato"});
    Press("cmdReset");
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(StatusAndNote(), "Comunicazione OK (risposte 0 su 1)");
    EXPECT_EQ(LastCommand(), "Azzeramento suonerie, terminale 4: " + StatusAndNote());
    Press("cmdUscita");
    Controls().ListaTerminali->clear();
    Open("Orlo II");
    Press("cmdReset");
    EXPECT_EQ(LastCommand(), "Azzeramento suonerie, terminale 4: Comunicazione OK");
}

TEST_F(FrmRingOrloII, AResetUsesAnOpenLineAndLeavesItOpen)
{
    pc.dialog.answer_yes = true;
    Open();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Press("cmdReset");
    EXPECT_EQ(commands, QStringList{QStringLiteral("14CLEAR")});
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_EQ(Status(), "Comunicazione OK");
}

TEST_F(FrmRingOrloII, AResetDoesNotUseTheLineOfAnotherPort)
{
    pc.dialog.answer_yes = true;
    Open();
    state.SessionPort = 2;
    Controls().Verde->show();
    Press("cmdReset");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(),
              "Errore: è collegata la linea della COM 2, non quella di questo terminale.");
    EXPECT_EQ(LastCommand(),
              "Azzeramento suonerie, terminale 4: Errore: è collegata la linea della COM 2, non "
              "quella di questo terminale.");
    EXPECT_EQ(List().Lines(), RingLines({}));
}

TEST_F(FrmRingOrloII, TheOutcomeOfASendOfNothingIsGoneBeforeTheTerminalIsReset)
{
    pc.dialog.answer_yes = true;
    UseDatabase("nimbo-base-2000.mdb");
    Open("OrloTre");
    Press("cmdTrasmette");
    ASSERT_EQ(Status(), "Comunicazione OK");
    std::string when_asked = "not asked";
    DuringTelegram(1, [&] { when_asked = StatusAndNote(); });
    Press("cmdReset");
    EXPECT_EQ(when_asked, "");
    EXPECT_EQ(StatusAndNote(), "Comunicazione OK");
}

TEST_F(FrmRingOrloII, ResetThatIsNotConfirmedDoesNothing)
{
    Open();
    Press("cmdReset");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, AConfirmedResetEmptiesTheListWhateverTheTerminalAnswers)
{
    pc.dialog.answer_yes = true;
    const auto expect_emptied = [this](const char* status) {
        Press("cmdReset");
        EXPECT_EQ(Status(), status);
        EXPECT_EQ(List().Lines(), RingLines({})) << status;
        EXPECT_EQ(Exported(), std::string(kTerminal1) + kTerminal4) << status;
        Press("cmdUscita");
        OpenBells("frmRingOrloII");
        EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1") << status;
    };
    Open("Orlo II", {"14*:richiesta-persa"});
    expect_emptied("Timeout");
    pc.com1.device_missing = true;
    expect_emptied("Errore aprendo la COM");
}

}  // namespace
}  // namespace orlo::testing
