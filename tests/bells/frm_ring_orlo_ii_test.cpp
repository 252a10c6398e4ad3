#include "bells/week_drawing.h"
#include "tests/bells/ring_orlo_ii_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(FrmRingOrloII, ShowsTheRowsOfItsTerminalAndEmptyLinesBehindThem)
{
    Open();
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 4"));
    EXPECT_EQ(Text("LabelTestata"), "Loc   Ora   Tempo  D .  .  .  .  .  .  F   1  2");
    ASSERT_EQ(List().count(), 32);
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
    EXPECT_EQ(Line(3), "04   17:35     05     0 1 1 1 1 1 1 0    0 1");
    EXPECT_EQ(Line(4), "05   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_EQ(Line(31), "32   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_TRUE(pc.com1.sent.empty());
}

TEST_F(FrmRingOrloII, MakesTheTableThatIsMissing)
{
    UseDatabase("nimbo-base-97.mdb");
    Open();
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_TRUE(LoadBellRows(*state.Database, 4).empty());
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(FrmRingOrloII, AClickedLineIsCopiedIntoTheControls)
{
    Open();
    ClickLine(2);
    EXPECT_EQ(Text("Ring"), "13:35");
    EXPECT_EQ(Text("TempoRings"), "05");
    EXPECT_EQ(Days(), "01111110");
    EXPECT_FALSE(Ticked("RelèA"));
    EXPECT_TRUE(Ticked("RelèB"));
    EXPECT_EQ(Text("LabelSuoneria"), "Suoneria 03");
    ClickLine(9);
    EXPECT_EQ(Text("Ring"), "00:00");
    EXPECT_EQ(Days(), "00000000");
    EXPECT_TRUE(Ticked("RelèA")) << "a new ring has a relay";
}

TEST_F(FrmRingOrloII, StoringChangesTheRowOfTheClickedLineAndTheLine)
{
    Open();
    ClickLine(1);
    Type("Ring", "7:5");
    EXPECT_EQ(Text("Ring"), "07:05");
    Type("TempoRings", "9");
    EXPECT_EQ(Text("TempoRings"), "09");
    Press("Festivo");
    Press("RelèA");
    EXPECT_EQ(Unsaved(), "Modifiche non salvate");
    EXPECT_EQ(Primary(), "cmdAggiorna") << "sending would send the ring from before";
    Press("cmdAggiorna");
    EXPECT_EQ(Primary(), "cmdTrasmette");
    EXPECT_EQ(Line(1), "02   07:05     09     0 1 1 1 1 1 1 1    1 0");
    EXPECT_EQ(Unsaved(), "");
    std::string expected = std::string(kTerminal1) + kTerminal4;
    const std::string old = "4,2,12,5,\"01111110\",2,5";
    expected.replace(expected.find(old), old.size(), "4,2,7,5,\"01111111\",1,9");
    EXPECT_EQ(Exported(), expected);
    EXPECT_EQ(jet::CheckIntegrity(file), std::vector<std::string>{});
}

TEST_F(FrmRingOrloII, WhatIsNotSavedIsSaidBesideTheButtonThatSavesIt)
{
    Open();
    ClickLine(1);
    const QRect save = Control("cmdAggiorna").geometry();
    for (const char* relay : {"RelèA", "RelèB"}) {
        Press(relay);
        QCoreApplication::processEvents();
        const auto& panel = Control<OutcomePanel>("LabelModifiche");
        EXPECT_EQ(panel.toolTip(), QString()) << "elided";
        EXPECT_EQ(panel.accessibleDescription().toStdString(), Unsaved());
        EXPECT_LE(save.left() - panel.geometry().right(), 10);
        EXPECT_EQ(Control("cmdAggiorna").geometry(), save);
    }
    EXPECT_EQ(Unsaved(), "") << "the relay from before";
    EXPECT_EQ(Primary(), "cmdTrasmette");
    Press("RelèA");
    ClickLine(2);
    EXPECT_EQ(Primary(), "cmdTrasmette") << "what was typed is gone";
}

TEST_F(FrmRingOrloII, AStoredTimeThatIsNoneStaysUntilAnotherIsTyped)
{
    UseDatabase("nimbo-full-2000.mdb");
    StoreBellRow(*state.Database, {4, 1, 24, 60, QStringLiteral("01111110"), 2, 5});
    Open();
    Type("Ring", "");
    Type("TempoRings", "");
    EXPECT_EQ(Text("Ring"), "24:60");
    EXPECT_EQ(Unsaved(), "");
    Type("TempoRings", "6");
    Press("cmdAggiorna");
    EXPECT_EQ(Line(0), "01   24:60     06     0 1 1 1 1 1 1 0    0 1");
    Type("Ring", "2400");
    EXPECT_EQ(Text("Ring"), "24:60") << "refused";
    const auto& panel = Control<OutcomePanel>("PannelloSuonerie");
    EXPECT_EQ(panel.Remark(), QStringLiteral("24:00 non è un'ora"));
    Type("Ring", "0830");
    EXPECT_EQ(panel.Remark(), QString());
    Type("Ring", "2400");
    ClickLine(1);
    EXPECT_EQ(panel.Remark(), QString()) << "it was said of another ring";
    ClickLine(0);
    Type("Ring", "0830");
    Press("cmdAggiorna");
    EXPECT_EQ(Line(0), "01   08:30     06     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, StoringAddsTheRowThatTheClickedLineHasNone)
{
    Open();
    ClickLine(31);
    Type("Ring", "23.59");
    Type("TempoRings", "12");
    Press("Domenica");
    Press("cmdAggiorna");
    EXPECT_EQ(Exported(), std::string(kTerminal1) + kTerminal4 + "4,32,23,59,\"10000000\",1,12\n");
    EXPECT_EQ(LastCommand(), "Salvataggio, terminale 4: suoneria salvata");
    Press("cmdUscita");
    OpenBells("frmRingOrloII");
    EXPECT_EQ(Line(4), "32   23:59     12     1 0 0 0 0 0 0 0    1 0") << "behind the rows before";
    EXPECT_EQ(Line(5), "05   00:00     00     0 0 0 0 0 0 0 0    0 0");
}

TEST_F(FrmRingOrloII, WhatCannotBeStoredIsToldAndTheLineStays)
{
    UseDatabase("nimbo-full-2000.mdb", jet::OpenMode::ReadOnly);
    Open();
    ClickLine(0);
    Press("Festivo");
    const std::string before = Line(0);
    Press("cmdAggiorna");
    EXPECT_EQ(Line(0), before);
    EXPECT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(LastCommand(), "Salvataggio, terminale 4: non salvata");
    EXPECT_EQ(Unsaved(), "Modifiche non salvate");
}

TEST_F(FrmRingOrloII, AListThatCouldNotBeLoadedIsNotSent)
{
    UseDatabase("nimbo-base-2000.mdb", jet::OpenMode::ReadOnly);
    Open();
    EXPECT_EQ(pc.dialog.told.size(), 1U) << "the missing table cannot be made";
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_FALSE(Enabled("cmdTrasmette"));
    EXPECT_FALSE(Enabled("cmdAggiorna"));
    EXPECT_TRUE(Enabled("cmdReset"));
    EXPECT_EQ(Status(), "Errore: la tabella delle suonerie non si può leggere.");
}

TEST_F(FrmRingOrloII, AListThatLoadsBehindOneThatDidNotCanBeStoredAndSent)
{
    UseDatabase("nimbo-base-2000.mdb", jet::OpenMode::ReadOnly);
    Open();
    ASSERT_FALSE(Enabled("cmdTrasmette"));
    Press("cmdUscita");
    UseDatabase("nimbo-full-2000.mdb");
    Register(1, QStringLiteral("Strale"));
    window.SelectTerminalLine(1);
    OpenBells("frmRingOrloII");
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 1"));
    EXPECT_TRUE(Enabled("cmdTrasmette"));
    EXPECT_TRUE(Enabled("cmdAggiorna"));
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Line(0), "01   08:00     03     0 1 1 1 1 1 0 0    1 0");
}

TEST_F(FrmRingOrloII, TheWeekIsDrawnAndAMarkChoosesItsLine)
{
    Open();
    ClickLine(31);
    auto& drawing = Control<WeekDrawing>("DisegnoSettimana");
    ASSERT_EQ(drawing.Marks().size(), 24U) << "four rings on six days";
    std::size_t mark = 0;
    while (drawing.Marks()[mark].minute != 13 * 60 + 35) ++mark;
    EXPECT_TRUE(drawing.Marks()[mark].hollow) << "relay B";
    QTest::mouseClick(&drawing, Qt::LeftButton, {}, drawing.Places()[mark].center().toPoint());
    EXPECT_EQ(List().currentRow(), 2);
    EXPECT_TRUE(drawing.Marks()[mark].chosen);
}

TEST_F(FrmRingOrloII, TheListShowsWholeLinesInEveryHeight)
{
    Open();
    for (const int height : {600, 601, 613, 700}) {
        bells->resize(920, height);
        QCoreApplication::processEvents();
        ASSERT_EQ(bells->height(), height);
        const int row = List().sizeHintForRow(0);
        EXPECT_EQ(List().viewport()->height() % row, 0) << height;
        EXPECT_GT(List().viewport()->height() + row, List().height() - 2 * List().frameWidth());
    }
}

TEST_F(FrmRingOrloII, FitsSmallScreens)
{
    Open();
    ExpectToFitSmallScreens();
}

TEST_F(FrmRingOrloII, OnAScreenThatIsTooSmallTheRingScrollsAndTheButtonsStay)
{
    Open();
    const auto& scrolling = Control<ScrollingPage>("ScorrimentoSuonerie");
    ExpectNoScrolling(scrolling);
    EnlargeFontOf(*bells, 1.25);
    ExpectToStayOnTheScreen(*bells, scrolling);
    Control("Festivo").setFocus();
    EXPECT_TRUE(SeenOf(scrolling).contains(PlaceIn(*scrolling.widget(), Control("Festivo"))));
}

TEST_F(FrmRingOrloII, EveryInputHasANameAndNoTwoMnemonicsAreAlike)
{
    Open();
    for (const QAbstractButton* button : bells->findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    EXPECT_EQ(MnemonicsOf(*bells).size(), 17);
    EXPECT_PRED1(AllDifferent, MnemonicsOf(*bells));
    for (const QLineEdit* field : bells->findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
}

TEST_F(FrmRingOrloII, ALineIsReadOutInWords)
{
    Open();
    const auto words = [this](int row) {
        return List().item(row)->data(Qt::AccessibleTextRole).toString().toStdString();
    };
    EXPECT_EQ(words(0),
              "1: 08:05, durata 5, lunedì martedì mercoledì giovedì venerdì sabato, relè B");
    EXPECT_EQ(words(4), "5: nessuna suoneria");
}

}  // namespace
}  // namespace orlo::testing
