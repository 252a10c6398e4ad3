#include "bells/week_drawing.h"
#include "registry/widgets/outcome_panel.h"
#include "tests/bells/bell_window_fixture.h"
#include "tests/bells/fake_rings.h"
#include "tests/support/object_window.h"

#include <QProgressBar>

namespace orlo::testing
{
namespace
{

constexpr RingEntry kMorning{0, 8, 30, 5};
constexpr RingEntry kNoon{0, 12, 0, 10};
constexpr RingEntry kFivePastSeven{0, 7, 5, 3};

class FrmSuonerie : public BellWindowTest<ObjectWindow>
{
protected:
    FakeRings rings{terminal.component};

    void Open(const char* model = "Orlo")
    {
        Connect(model);
        state.Component->RingsObject = rings.Make();
        OpenBells("FrmSuonerie");
    }
    RingEntry& Entry(int day, int ring) { return RingOf(state.RingTable, kTerminal, day, ring); }

    QString Cell(const char* name, int index) const
    {
        return QLatin1String(name) + u'_' + QString::number(index);
    }
    std::string Times(int count) const
    {
        std::string times;
        for (int index = 0; index < count; ++index)
            times += Text(Cell("Ring", index)) + " " + Text(Cell("TempoRings", index)) + ";";
        return times;
    }
    QString CheckedDays() const
    {
        QString days;
        for (int day = 0; day < kRingDays; ++day)
            days += Control<QAbstractButton>(Cell("Giorno", day)).isChecked() ? u'1' : u'0';
        return days;
    }
    std::string Primary() const
    {
        std::string names;
        for (const QAbstractButton* button : bells->findChildren<QAbstractButton*>())
            if (button->property("primario").toBool()) names += button->objectName().toStdString();
        return names;
    }
    const std::vector<RingMark>& Marks() const
    {
        return Control<WeekDrawing>(QStringLiteral("DisegnoSettimana")).Marks();
    }
};

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

TEST_F(FrmSuonerie, AWeekIsReadDayByDayAndShownSorted)
{
    rings.week[0][23] = kMorning;
    rings.week[6] = {kNoon, RingEntry{}, kMorning};
    Open();
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(CallsMade(), (Calls{"OpenComunication(1, 38400)", "Rings.Receive(4, 7, day 0)",
                                  "Rings.Receive(4, 7, day 1)", "Rings.Receive(4, 7, day 2)",
                                  "Rings.Receive(4, 7, day 3)", "Rings.Receive(4, 7, day 4)",
                                  "Rings.Receive(4, 7, day 5)", "Rings.Receive(4, 7, day 6)",
                                  "DTR(false)", "DTR(true)"}));
    EXPECT_EQ(Told(DialogIcon::Information), QStringLiteral("Ricezione dati OK"));
    EXPECT_TRUE(Entry(0, 1) == kMorning);
    EXPECT_EQ(CheckedDays(), QStringLiteral("0000000")) << "no day is shown";
    Press("Giorno_6");
    EXPECT_EQ(Times(3), "08:30 5;12:00 10;00:00 0;");
    EXPECT_EQ(Text(QStringLiteral("LabelGiorno")), "Suonerie di sabato");
}

TEST_F(FrmSuonerie, ASipasLineIsNotReset)
{
    Open("Sipa");
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(terminal.component.CallsOf("DTR").empty());
    EXPECT_EQ(terminal.component.CallsOf("Rings.Receive").size(), 7U);
}

TEST_F(FrmSuonerie, AReadClearsTheTableOfAllTerminals)
{
    Open();
    RingOf(state.RingTable, 9, 3, 3) = kNoon;
    Entry(2, 2) = kNoon;
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(state.RingTable == RingTable{});
}

TEST_F(FrmSuonerie, ASilentTerminalIsAskedAsOftenAsItHasAttempts)
{
    rings.silent = true;
    Open();
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(terminal.component.CallsOf("Rings.Receive"), Calls(3, "Rings.Receive(4, 7, day 0)"));
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella ricezione dei dati"));
    EXPECT_EQ(pc.dialog.told.front().informative,
              QStringLiteral("Da domenica in poi non è stato letto niente: 99,Time Out."));
    EXPECT_EQ(Controls().PannelloTentativi->text(), QStringLiteral("Tentativi3/3"));
    EXPECT_EQ(Text(QStringLiteral("LabelTentativi")), "Tentativi3/3");
    EXPECT_EQ(Text(QStringLiteral("Esito")), "Errore nella ricezione dei dati");
    EXPECT_EQ(terminal.component.CallsOf("DTR").size(), 2U) << "also behind a failure";
}

TEST_F(FrmSuonerie, FailuresAreCountedForEachDay)
{
    rings.failures = {"ER", "ER", "", "ER", "ER", ""};
    Open();
    QStringList shown;
    QObject::connect(Controls().PannelloTentativi, &TextPanel::TextChanged, bells,
                     [&shown](const QString& text) { shown << text; });
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Told(DialogIcon::Information), QStringLiteral("Ricezione dati OK"));
    EXPECT_EQ(shown.join(u' ').toStdString(),
              "Tentativi2/3 Tentativi3/3 Tentativi2/3 Tentativi3/3");
}

TEST_F(FrmSuonerie, WithoutAttemptsEachDayIsAskedForOnce)
{
    rings.silent = true;
    Connect();
    Controls().Tentativi->setText(QStringLiteral("0"));
    state.Component->RingsObject = rings.Make();
    OpenBells("FrmSuonerie");
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(terminal.component.CallsOf("Rings.Receive").size(), 1U);
}

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
    EXPECT_TRUE(Control<OutcomePanel>(QStringLiteral("Esito"))
                    .Remark()
                    .contains(QStringLiteral("solo in parte")));
}

TEST_F(FrmSuonerie, All168RingsAreSentSortedEmptyOnesToo)
{
    Open();
    Entry(1, 1) = kNoon;
    Entry(1, 3) = kMorning;
    Press("cmdTrasmetteSuonerie");
    const Calls sent = terminal.component.CallsOf("Rings.Send");
    ASSERT_EQ(sent.size(), 168U);
    EXPECT_EQ(sent[0], "Rings.Send(4, 7) 0/1 00:00 0");
    EXPECT_EQ(sent[24], "Rings.Send(4, 7) 1/1 08:30 5");
    EXPECT_EQ(sent[25], "Rings.Send(4, 7) 1/2 12:00 10");
    EXPECT_EQ(sent[26], "Rings.Send(4, 7) 1/3 00:00 0");
    EXPECT_EQ(sent[167], "Rings.Send(4, 7) 6/24 00:00 0");
    EXPECT_EQ(Told(DialogIcon::Information), QStringLiteral("Spedizione dati OK"));
    EXPECT_EQ(CallsMade().back(), "DTR(true)");
    EXPECT_EQ(Text(QStringLiteral("Esito")), "Comunicazione OK");
}

TEST_F(FrmSuonerie, ARingThatStillFailsEndsTheSending)
{
    Open();
    rings.failures = {"", "ER", "", "ER", "ER", "ER"};
    Press("cmdTrasmetteSuonerie");
    const Calls sent = terminal.component.CallsOf("Rings.Send");
    ASSERT_EQ(sent.size(), 6U);
    EXPECT_EQ(sent[2], "Rings.Send(4, 7) 0/2 00:00 0");
    EXPECT_EQ(sent[5], "Rings.Send(4, 7) 0/3 00:00 0");
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella spedizione dei dati"));
    EXPECT_EQ(pc.dialog.told.front().informative,
              QStringLiteral("Dalla suoneria 3 di domenica in poi il terminale ha ancora le "
                             "suonerie di prima: ER."));
}

TEST_F(FrmSuonerie, ThePercentageRisesAndIsBackAt0)
{
    Open();
    std::vector<int> percentages;
    QObject::connect(&Control<QProgressBar>(QStringLiteral("Percentuale")),
                     &QProgressBar::valueChanged, bells,
                     [&percentages](int value) { percentages.push_back(value); });
    QString caption;
    terminal.component.on_call = [&](const std::string& call) {
        if (call.starts_with("Rings.Send")) caption = Controls().LabelPercentuale->text();
    };
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(caption, QStringLiteral("Completato:"));
    ASSERT_FALSE(percentages.empty());
    EXPECT_EQ(percentages.front(), 1);
    EXPECT_TRUE(std::is_sorted(percentages.begin(), percentages.end() - 1));
    EXPECT_EQ(percentages.end()[-2], 100);
    EXPECT_EQ(percentages.back(), 0);
    EXPECT_EQ(Controls().PannelloPercentuale->text(), QStringLiteral("0%"));
    EXPECT_EQ(Controls().LabelPercentuale->text(), QStringLiteral("Restano:"));
}

TEST_F(FrmSuonerie, TheTerminalsDelayComesBeforeACommandAndBeforeEachRepetition)
{
    Connect("Orlo", /*delay=*/2);
    state.Component->RingsObject = rings.Make();
    OpenBells("FrmSuonerie");
    rings.failures = {"ER", ""};
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(std::chrono::round<std::chrono::seconds>(pc.clock.Passed()).count(), 4);
}

TEST_F(FrmSuonerie, AnEnteredRingStandsInTheTableAndInTheDrawing)
{
    Open();
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie") << "sending now would empty the terminal";
    Press("Giorno_3");
    Type(QStringLiteral("Ring_0"), "7:5");
    Type(QStringLiteral("TempoRings_0"), "3");
    EXPECT_TRUE(Entry(3, 1) == kFivePastSeven);
    EXPECT_EQ(Times(1), "07:05 3;");
    ASSERT_EQ(Marks().size(), 1U);
    EXPECT_EQ(Marks()[0].day, 3);
    EXPECT_EQ(Marks()[0].minute, 425);
    EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
}

TEST_F(FrmSuonerie, ADurationAbove10BecomesTen)
{
    Open();
    Press("Giorno_0");
    Type(QStringLiteral("TempoRings_5"), "25");
    EXPECT_EQ(Text(QStringLiteral("TempoRings_5")), "10");
    EXPECT_EQ(Entry(0, 6).HowLong, 10);
}

TEST_F(FrmSuonerie, TabGoesFromTheTimeToTheDurationToTheNextRing)
{
    Open();
    Press("Giorno_0");
    Type(QStringLiteral("Ring_11"), "8");
    EXPECT_TRUE(Control(QStringLiteral("TempoRings_11")).hasFocus());
    Type(QStringLiteral("TempoRings_11"), "1");
    EXPECT_TRUE(Control(QStringLiteral("Ring_12")).hasFocus());
}

TEST_F(FrmSuonerie, WhatWasTypedAndNotLeftIsTakenWhereverOneGoes)
{
    Open();
    Press("Giorno_1");
    auto& field = Control<QLineEdit>(QStringLiteral("Ring_0"));
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
    Type(QStringLiteral("Ring_0"), "0705");
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
    auto& drawing = Control<WeekDrawing>(QStringLiteral("DisegnoSettimana"));
    QTest::mouseClick(&drawing, Qt::LeftButton, {}, drawing.Places()[0].center().toPoint());
    EXPECT_TRUE(Ticked("Giorno_5"));
    EXPECT_TRUE(Control(QStringLiteral("Ring_1")).hasFocus());
    EXPECT_TRUE(Marks()[0].chosen);
}

TEST_F(FrmSuonerie, WhatTheComponentThrowsEndsTheCommandNotTheProgram)
{
    Open();
    LetThrow("Rings.Receive(4, 7, day 2)");
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella ricezione dei dati"));
    EXPECT_EQ(pc.dialog.told.front().informative, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(Text(QStringLiteral("Esito")), "Errore del componente: guasto");
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 0);
    EXPECT_TRUE(Enabled("cmdRiceveSuonerie"));
}

TEST_F(FrmSuonerie, WithoutAComponentNothingIsCleared)
{
    Open();
    Entry(0, 1) = kNoon;
    state.Component.reset();
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(Entry(0, 1) == kNoon);
    EXPECT_EQ(Text(QStringLiteral("Esito")), "Errore: il componente per Orlo non è disponibile.");
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(FrmSuonerie, NothingReactsWhileACommandRunsAndACloseFollowsIt)
{
    Open();
    bool inert = true;
    terminal.component.on_call = [&](const std::string& call) {
        if (call != "Rings.Receive(4, 7, day 3)") return;
        for (const char* button : {"cmdRiceveSuonerie", "cmdTrasmetteSuonerie", "cmdUscita"})
            inert = inert && !Enabled(button);
        QTest::keyClick(bells, Qt::Key_Escape);
        inert = inert && bells->isVisible();
        Press("Giorno_1");
        inert = inert && CheckedDays() == QStringLiteral("0000000");
        bells->close();
        inert = inert && bells->isVisible();
    };
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(inert);
    EXPECT_EQ(terminal.component.CallsOf("Rings.Receive").size(), 7U);
    EXPECT_FALSE(bells->isVisible());
    EXPECT_EQ(Controls().LabelUltimoComando->text().section(u' ', 1),
              QStringLiteral("Lettura suonerie, terminale 4: Ricezione dati OK"));
}

TEST_F(FrmSuonerie, EveryInputHasANameAndNoTwoMnemonicsAreAlike)
{
    Open();
    QStringList letters;
    for (const QAbstractButton* button : bells->findChildren<QAbstractButton*>()) {
        const qsizetype mark = button->text().indexOf(u'&');
        EXPECT_GE(mark, 0) << button->objectName().toStdString();
        letters << button->text().mid(mark + 1, 1).toUpper();
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    }
    EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(u' ').toStdString();
    for (const QLineEdit* field : bells->findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    EXPECT_EQ(Control(Cell("Ring", 2)).accessibleName(), QStringLiteral("Suoneria 3: ora"));
}

}  // namespace
}  // namespace orlo::testing
