// What the window knows of the week that it shows.

#include "tests/bells/suonerie_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(FrmSuonerie, APartlyReadWeekStaysAndTheOperatorIsWarned)
{
    rings.week[0][0] = kNoon;
    rings.failures = {"", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(Entry(0, 1) == kNoon);
    EXPECT_EQ(pc.dialog.told.front().informative,
              QStringLiteral("Da lunedì in poi non è stato letto niente: ER."));
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie");
    EXPECT_EQ(Text("Esito"), "Errore nella ricezione dei dati");
    EXPECT_EQ(Warning(), kPartial);
}

TEST_F(FrmSuonerie, AWeekReadInPartIsStillThatWhenTheWindowIsOpenedAgain)
{
    rings.week[0][0] = kNoon;
    rings.failures = {"", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    EXPECT_EQ(Warning(), kPartial);
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie");
    EXPECT_TRUE(Control("cmdRiceveSuonerie").hasFocus());
}

TEST_F(FrmSuonerie, AReadThatCannotBeginLeavesTheWeekAsItIs)
{
    Open();
    Press("Giorno_1");
    Type("Ring_0", "1200");
    Type("Ring_1", "0830");
    state.Component.reset();
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Times(2), "12:00 0;08:30 0;");
    EXPECT_EQ(Entry(1, 1).Hour, 12) << "not sorted under its cells";
    EXPECT_EQ(Warning(), kEdited);
    EXPECT_EQ(Text("LabelGiorno"), "Suonerie di lunedì");
}

TEST_F(FrmSuonerie, AReadThatBringsNothingLeavesTheWeekUnread)
{
    rings.silent = true;
    Open();
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Warning(), kUnread);
    EXPECT_EQ(Text("Esito"), "Errore nella ricezione dei dati");
    EXPECT_TRUE(Marks().empty());
}

TEST_F(FrmSuonerie, DaysReadWithoutARingAreReadInPart)
{
    rings.failures = {"", "", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Warning(), kPartial);
}

TEST_F(FrmSuonerie, AnEmptyWeekThatWasReadOrSentIsKnown)
{
    Open();
    for (const char* button : {"cmdRiceveSuonerie", "cmdTrasmetteSuonerie"}) {
        Press(button);
        Press("cmdUscita");
        OpenBells("FrmSuonerie");
        EXPECT_EQ(Warning(), "") << button;
        EXPECT_TRUE(Control("cmdTrasmetteSuonerie").hasFocus()) << button;
    }
}

TEST_F(FrmSuonerie, WhatWasChangedBehindAReadIsNotSentUntilASendIsComplete)
{
    Open();
    Press("cmdRiceveSuonerie");
    Press("Giorno_1");
    Type("TempoRings_0", "3");
    EXPECT_EQ(Text("Esito"), "Comunicazione OK") << "an empty slot stays one";
    Type("Ring_0", "0915");
    EXPECT_EQ(Text("Esito"), "");
    EXPECT_EQ(Warning(), kNotSent);
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    EXPECT_EQ(Warning(), kNotSent) << "opened again";
    EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
    rings.failures = {"", "ER", "ER", "ER"};
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(Warning(), kNotSent) << "sent in part";
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(Warning(), "");
    Press("Giorno_1");
    Type("TempoRings_0", "4");
    EXPECT_EQ(Warning(), kNotSent);
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Warning(), "");
}

TEST_F(FrmSuonerie, AChangeLeavesAWeekReadInPartThatAndIsRemembered)
{
    rings.failures = {"", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    Press("Giorno_1");
    Type("Ring_0", "0915");
    EXPECT_EQ(Text("Esito"), "");
    EXPECT_EQ(Warning(), kPartialChanged);
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie");
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    EXPECT_EQ(Warning(), kPartialChanged);
}

TEST_F(FrmSuonerie, AWeekReadInPartIsWholeOnceItIsSent)
{
    rings.failures = {"", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(Warning(), "");
    EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
}

TEST_F(FrmSuonerie, ReadingATerminalMakesTheWeeksOfAllOthersUnread)
{
    Open();
    Press("cmdRiceveSuonerie");
    Press("cmdUscita");
    Register(9, QStringLiteral("Sipa"));
    window.SelectTerminalLine(1);
    OpenBells("FrmSuonerie");
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 9"));
    EXPECT_EQ(Warning(), kUnread);
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Warning(), "");
    Press("cmdUscita");
    window.SelectTerminalLine(0);
    OpenBells("FrmSuonerie");
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 4"));
    EXPECT_EQ(Warning(), kUnread);
}

}  // namespace
}  // namespace orlo::testing
