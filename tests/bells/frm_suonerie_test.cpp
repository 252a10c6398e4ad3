#include "tests/bells/suonerie_fixture.h"

namespace orlo::testing
{
namespace
{

TEST_F(FrmSuonerie, OpensForTheSelectedTerminalAndAsksItNothing)
{
    Open();
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 4"));
    EXPECT_EQ(bells->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(CallsMade().empty());
    EXPECT_EQ(CheckedDays(), QStringLiteral("0000000"));
    EXPECT_EQ(Times(2), "00:00 0;00:00 0;");
    EXPECT_FALSE(Enabled("Ring_0")) << "no day to enter it in";
}

TEST_F(FrmSuonerie, AnEnteredRingStandsInTheTableAndInTheDrawing)
{
    Open();
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie") << "sending now would empty the terminal";
    Press("Giorno_3");
    Type("Ring_0", "7:5");
    Type("TempoRings_0", "3");
    EXPECT_TRUE(Entry(3, 1) == kFivePastSeven);
    EXPECT_EQ(Times(1), "07:05 3;");
    ASSERT_EQ(Marks().size(), 1U);
    EXPECT_EQ(Marks()[0].day, 3);
    EXPECT_EQ(Marks()[0].minute, 425);
    EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
}

TEST_F(FrmSuonerie, AWeekThatWasEditedUnreadIsStillUnread)
{
    Open();
    Press("Giorno_3");
    Type("Ring_0", "0705");
    EXPECT_EQ(Warning(), kEdited);
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    EXPECT_EQ(Warning(), kEdited) << "opened again";
    EXPECT_TRUE(Control("cmdTrasmetteSuonerie").hasFocus());
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(Warning(), "");
}

TEST_F(FrmSuonerie, TheWarningIsPaintedBesideTheOutcomeAndMovesNothing)
{
    Open();
    auto& panel = Control<OutcomePanel>("Avviso");
    EXPECT_EQ(Warning(), kUnread);
    const QRect room = Control("DisegnoSettimana").geometry();
    const QImage painted = panel.grab().toImage();
    Control<OutcomePanel>("Esito").setText(QStringLiteral("Errore nella ricezione dei dati"));
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.grab().toImage(), painted);
    panel.SetRemark(QString());
    QCoreApplication::processEvents();
    EXPECT_NE(panel.grab().toImage(), painted);
    EXPECT_EQ(Control("DisegnoSettimana").geometry(), room);
}

TEST_F(FrmSuonerie, ADurationAbove10BecomesTen)
{
    Open();
    Press("Giorno_0");
    Type("TempoRings_5", "25");
    EXPECT_EQ(Text("TempoRings_5"), "10");
    EXPECT_EQ(Entry(0, 6).HowLong, 10);
}

TEST_F(FrmSuonerie, WhyATimeOrADurationWasNotTakenStandsThereUntilTheNextIsTyped)
{
    Open();
    Press("Giorno_0");
    const auto& panel = Control<OutcomePanel>("Esito");
    Control<OutcomePanel>("Esito").setText(QStringLiteral("Comunicazione OK"));
    Type("Ring_0", "24:00");
    EXPECT_EQ(panel.Remark(), QStringLiteral("24:00 non è un'ora"));
    EXPECT_EQ(panel.text(), QString()) << "would be painted in its place";
    Type("TempoRings_0", "11");
    EXPECT_EQ(panel.Remark(), QStringLiteral("11: la durata più lunga è 10"));
    Type("Ring_1", "8");
    EXPECT_EQ(panel.Remark(), QString());
    Type("Ring_1", "99:9");
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    EXPECT_EQ(panel.Remark(), QString()) << "opened again";
}

TEST_F(FrmSuonerie, TabGoesFromTheTimeToTheDurationToTheNextRing)
{
    Open();
    Press("Giorno_0");
    Type("Ring_11", "8");
    EXPECT_TRUE(Control("TempoRings_11").hasFocus());
    Type("TempoRings_11", "1");
    EXPECT_TRUE(Control("Ring_12").hasFocus());
}

TEST_F(FrmSuonerie, WhatWasTypedAndNotLeftIsTakenWhereverOneGoes)
{
    Open();
    Press("Giorno_1");
    auto& field = Control<QLineEdit>("Ring_0");
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, QStringLiteral("0830"));
    Press("Giorno_2");
    EXPECT_EQ(Entry(1, 1).Hour, 8) << "another day";
    EXPECT_EQ(Entry(2, 1).Hour, 0);

    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, QStringLiteral("0930"));
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(rings.week[2][0].Hour, 9) << "sending";

    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, QStringLiteral("1015"));
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(bells->isVisible());
    EXPECT_EQ(Entry(2, 1).Hour, 10) << "closing";
}

TEST_F(FrmSuonerie, TheTableIsKeptWhileTheWindowIsClosed)
{
    Open();
    Press("Giorno_3");
    Type("Ring_0", "0705");
    Press("cmdUscita");
    EXPECT_FALSE(bells->isVisible());
    OpenBells("FrmSuonerie");
    EXPECT_EQ(Marks().size(), 1U);
    EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
    Press("Giorno_3");
    EXPECT_EQ(Times(1), "07:05 0;");
}

TEST_F(FrmSuonerie, AClickOnAMarkShowsItsDayAndGoesToItsRing)
{
    Open();
    Entry(5, 2) = kNoon;
    Press("cmdUscita");
    OpenBells("FrmSuonerie");
    auto& drawing = Control<WeekDrawing>("DisegnoSettimana");
    QTest::mouseClick(&drawing, Qt::LeftButton, {}, drawing.Places()[0].center().toPoint());
    EXPECT_TRUE(Ticked("Giorno_5"));
    EXPECT_TRUE(Control("Ring_1").hasFocus());
    EXPECT_TRUE(Marks()[0].chosen);
}

TEST_F(FrmSuonerie, TheRowsOfTheDayShareTheHeightOfTheDrawing)
{
    Open();
    bells->resize(860, 590);
    QCoreApplication::processEvents();
    const auto bottom = [this](QAnyStringView name) {
        return Control(name).mapTo(bells, Control(name).rect().bottomLeft()).y();
    };
    EXPECT_EQ(bottom("LabelRegola"), bottom("DisegnoSettimana"));
    // A field, the gap, and a part of the height that would be left below.
    const int step = bottom("Ring_1") - bottom("Ring_0");
    EXPECT_GT(step, Control("Ring_0").height() + 6 + 3);
    for (int row = 1; row < kRingsOfDay / 2; ++row)
        EXPECT_NEAR(bottom(Cell("Ring", row)) - bottom(Cell("Ring", row - 1)), step, 1) << row;
    EXPECT_LT(bottom("Ring_0") - bottom("LabelGiorno"), 3 * step);
}

TEST_F(FrmSuonerie, FitsSmallScreens)
{
    Open();
    ExpectToFitSmallScreens();
}

TEST_F(FrmSuonerie, OnAScreenThatIsTooSmallTheRingsScrollAndTheButtonsStay)
{
    Open();
    const auto& scrolling = Control<ScrollingPage>("ScorrimentoSuonerie");
    ExpectNoScrolling(scrolling);
    EnlargeFontOf(*bells, 1.25);
    ExpectToStayOnTheScreen(*bells, scrolling);
    Press("Giorno_0");
    Control("Ring_0").setFocus();
    Control("TempoRings_23").setFocus();
    EXPECT_TRUE(SeenOf(scrolling).contains(PlaceIn(*scrolling.widget(), Control("TempoRings_23"))));
}

TEST_F(FrmSuonerie, TheDaysStandOverTheirColumnsInALargeFontToo)
{
    Open();
    EnlargeFont(2);
    QCoreApplication::processEvents();
    const auto& drawing = Control<WeekDrawing>("DisegnoSettimana");
    const double column = (drawing.width() - drawing.HoursRoom()) / 7.0;
    for (int day = 0; day < kRingDays; ++day) {
        const QWidget& button = Control(Cell("Giorno", day));
        EXPECT_GE(button.width(), button.sizeHint().width()) << day;
        const int left = button.mapTo(bells, QPoint()).x() - drawing.mapTo(bells, QPoint()).x();
        EXPECT_NEAR(left, drawing.HoursRoom() + day * column, 8) << day;
    }
}

TEST_F(FrmSuonerie, EveryInputHasANameAndNoTwoMnemonicsAreAlike)
{
    Open();
    const auto buttons = bells->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons)
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    EXPECT_EQ(MnemonicsOf(*bells).size(), buttons.size());
    EXPECT_PRED1(AllDifferent, MnemonicsOf(*bells));
    for (const QLineEdit* field : bells->findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    EXPECT_EQ(Control(Cell("Ring", 2)).accessibleName(), QStringLiteral("Suoneria 3: ora"));
}

}  // namespace
}  // namespace orlo::testing
