#include "tests/bells/suonerie_fixture.h"
#include "tests/support/paint_count.h"

#include <algorithm>

namespace orlo::testing
{
namespace
{

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
    EXPECT_EQ(Text("LabelGiorno"), "Suonerie di sabato");
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
    EXPECT_EQ(Text("LabelTentativi"), "Tentativi3/3");
    EXPECT_EQ(Text("Esito"), "Errore nella ricezione dei dati");
    EXPECT_EQ(terminal.component.CallsOf("DTR").size(), 2U) << "also behind a failure";
}

TEST_F(FrmSuonerie, TheOldWeekIsGoneFromTheDrawingBeforeTheFirstDayIsAskedFor)
{
    Open();
    Entry(2, 2) = kNoon;
    Press("Giorno_2");
    ASSERT_EQ(Marks().size(), 1U);
    rings.silent = true;
    const PaintCount painted(Control("DisegnoSettimana"), [this] { return Marks().empty(); });
    std::vector<int> painted_at_requests;
    terminal.component.on_call = [&](const std::string& call) {
        if (call.starts_with("Rings.Receive")) painted_at_requests.push_back(painted.times);
    };
    Press("cmdRiceveSuonerie");
    ASSERT_EQ(painted_at_requests.size(), 3U);
    EXPECT_GT(painted_at_requests[0], 0);
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

TEST_F(FrmSuonerie, TheWindowIsUpToDateBeforeTheBoxSaysSo)
{
    rings.week[2][1] = kNoon;
    Open();
    QStringList titles;
    terminal.component.on_call = [&](const std::string& call) {
        if (call.starts_with("Rings.Receive(4, 7, day 6)") || call.ends_with("6/24 00:00 0"))
            titles << Control<QLabel>("LabelGiorno").text();
    };
    pc.dialog.on_tell = [&] {
        EXPECT_EQ(Warning(), "");
        EXPECT_EQ(Primary(), "cmdTrasmetteSuonerie");
        EXPECT_EQ(Controls().LabelAvviso->text(), QString());
        ASSERT_EQ(Marks().size(), 1U);
        EXPECT_EQ(Marks()[0].ring, 0) << "sorted";
        titles << Control<QLabel>("LabelGiorno").text();
    };
    Press("cmdRiceveSuonerie");
    Press("Giorno_2");
    Type("Ring_1", "0800");
    EXPECT_EQ(Warning(), kNotSent);
    Type("Ring_1", "0000");
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(pc.dialog.told.size(), 2U);
    EXPECT_EQ(titles.join(u'|').toStdString(),
              "Lettura suonerie in corso…|Scegliere un giorno|"
              "Invio suonerie in corso…|Suonerie di martedì");
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

TEST_F(FrmSuonerie, AChangeLeavesAWeekReadInPartThat)
{
    rings.failures = {"", "ER", "ER", "ER"};
    Open();
    Press("cmdRiceveSuonerie");
    Press("Giorno_1");
    Type("Ring_0", "0915");
    EXPECT_EQ(Text("Esito"), "");
    EXPECT_EQ(Warning(), kPartial);
    EXPECT_EQ(Primary(), "cmdRiceveSuonerie");
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
    EXPECT_EQ(Text("Esito"), "Comunicazione OK");
}

TEST_F(FrmSuonerie, ResetThatThrowsStandsInTheLineOfTheLastCommand)
{
    Open();
    LetThrow("DTR(true)");
    for (const char* button : {"cmdRiceveSuonerie", "cmdTrasmetteSuonerie"}) {
        Controls().LabelUltimoComando->clear();
        Press(button);
        EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(
            QStringLiteral("terminale 4: Errore del componente: guasto")))
            << button;
    }
}

TEST_F(FrmSuonerie, BehindASendNoRingIsTheChosenOne)
{
    Open();
    Press("Giorno_1");
    Type("Ring_0", "1200");
    Type("Ring_1", "0830");
    Control("Ring_0").setFocus(Qt::TabFocusReason);
    const auto chosen = [this] { return std::ranges::count(Marks(), true, &RingMark::chosen); };
    ASSERT_EQ(chosen(), 1);
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(Times(2), "08:30 0;12:00 0;");
    EXPECT_EQ(chosen(), 0);
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
              QStringLiteral("La suoneria 3 di domenica non è confermata; da quella dopo in "
                             "poi il terminale ha ancora le suonerie di prima: ER."));
}

TEST_F(FrmSuonerie, ThePercentageRisesAndIsBackAt0)
{
    Open();
    std::vector<int> percentages;
    QObject::connect(&Control<QProgressBar>("Percentuale"), &QProgressBar::valueChanged, bells,
                     [&percentages](int value) { percentages.push_back(value); });
    QString caption;
    terminal.component.on_call = [&](const std::string& call) {
        if (call.starts_with("Rings.Send")) caption = Controls().LabelPercentuale->text();
    };
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(caption, QStringLiteral("Completato:"));
    EXPECT_EQ(Text("LabelPercentuale"), "Completato:");
    EXPECT_EQ(Control<QProgressBar>("Percentuale").text(), QStringLiteral("0%"));
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

TEST_F(FrmSuonerie, WhatTheComponentThrowsEndsTheCommandNotTheProgram)
{
    Open();
    LetThrow("Rings.Receive(4, 7, day 2)");
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella ricezione dei dati"));
    EXPECT_EQ(pc.dialog.told.front().informative, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(Text("Esito"), "Errore del componente: guasto");
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 0);
    EXPECT_TRUE(Enabled("cmdRiceveSuonerie"));
}

TEST_F(FrmSuonerie, AnOrloBehindAModemIsDialledAndHungUpBehindEachCommand)
{
    Open();
    Controls().CheckModem->setChecked(true);
    Controls().NumeroTelefono->setText(QStringLiteral("0112345"));
    for (const char* button : {"cmdRiceveSuonerie", "cmdTrasmetteSuonerie"}) {
        terminal.component.calls.clear();
        terminal.component.received_texts = {"CONNECT"};
        Press(button);
        const std::string asked =
            terminal.component.CallsOf("Rings.Receive").empty() ? "Rings.Send" : "Rings.Receive";
        const auto first = [this](const std::string& begin) {
            return std::ranges::find_if(
                CallsMade(), [&](const std::string& call) { return call.starts_with(begin); });
        };
        ASSERT_EQ(terminal.component.CallsOf("SendString").size(), 1U) << button;
        EXPECT_NE(first("SendString(")->find("0112345"), std::string::npos)
            << *first("SendString(");
        EXPECT_LT(first("SendString("), first(asked)) << button;
        EXPECT_EQ(Calls(CallsMade().end() - 2, CallsMade().end()),
                  (Calls{"DTR(false)", "DTR(true)"}))
            << button;
        EXPECT_EQ(Text("Esito"), "Comunicazione OK") << button;
    }
}

TEST_F(FrmSuonerie, ACallThatTheOperatorEndsReadsNothingAndClearsNothing)
{
    Open();
    Controls().CheckModem->setChecked(true);
    Entry(2, 2) = kNoon;
    pc.dialog.answer_yes = true;
    terminal.component.on_call = [this](const std::string& call) {
        if (!call.starts_with("ReceiveString")) return;
        pc.clock.Advance(std::chrono::milliseconds{100});
        pc.escape.pressed = true;
    };
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(terminal.component.CallsOf("Rings.Receive").empty());
    EXPECT_TRUE(terminal.component.CallsOf("SendTelegram").empty());
    EXPECT_EQ(Calls(CallsMade().end() - 2, CallsMade().end()), (Calls{"DTR(false)", "DTR(true)"}));
    EXPECT_TRUE(Entry(2, 2) == kNoon);
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(Text("Esito"), "Chiamata interrotta.");
    EXPECT_EQ(Controls().LabelUltimoComando->text().section(u' ', 1),
              QStringLiteral("Lettura suonerie, terminale 4: Chiamata interrotta."));
}

TEST_F(FrmSuonerie, ValuesOfNoTimeAreShownAndSentAsTheyCame)
{
    rings.week[0] = {RingEntry{0, 25, 70, 99}, kNoon};
    Open();
    Press("cmdRiceveSuonerie");
    Press("Giorno_0");
    EXPECT_EQ(Times(3), "12:00 10;25:70 99;00:00 0;");
    ASSERT_EQ(Marks().size(), 2U);
    EXPECT_EQ(Marks()[1].minute, 1439) << "the last of its day";
    // Through the time without typing.
    Control("Ring_1").setFocus(Qt::TabFocusReason);
    Control("cmdTrasmetteSuonerie").setFocus();
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(terminal.component.CallsOf("Rings.Send").at(1), "Rings.Send(4, 7) 0/2 25:70 99");
}

TEST_F(FrmSuonerie, APortThatIsNoneIsLeftToTheComponent)
{
    rings.silent = true;
    Connect();
    Controls().ComboPorta->setCurrentIndex(-1);
    state.Component->RingsObject = rings.Make();
    OpenBells("FrmSuonerie");
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(CallsMade().front(), "OpenComunication(0, 38400)");
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella ricezione dei dati"));
    EXPECT_EQ(Text("Esito"), "Errore nella ricezione dei dati");
    EXPECT_TRUE(Enabled("cmdRiceveSuonerie"));
}

TEST_F(FrmSuonerie, AnEndOfTheProgramFollowsTheWholeWeek)
{
    Open();
    int asked_to_leave = 0;
    QObject::connect(&window, &Contenitore::LeaveRequested, bells, [&] { ++asked_to_leave; });
    terminal.component.on_call = [this](const std::string& call) {
        if (call.starts_with("Rings.Send(4, 7) 3/1 ")) window.close();
    };
    Press("cmdTrasmetteSuonerie");
    EXPECT_EQ(terminal.component.CallsOf("Rings.Send").size(), 168U);
    EXPECT_EQ(asked_to_leave, 1);
}

TEST_F(FrmSuonerie, AProgramThatIsToEndRepeatsNothing)
{
    const struct {
        const char* button;
        const char* asked;
    } cases[] = {{"cmdRiceveSuonerie", "Rings.Receive(4, 7, day 0)"},
                 {"cmdTrasmetteSuonerie", "Rings.Send(4, 7) 0/1 00:00 0"}};
    rings.silent = true;
    Open();
    Controls().Tentativi->setText(QStringLiteral("40"));
    terminal.component.on_call = [this](const std::string& call) {
        if (call.starts_with("Rings.")) window.close();
    };
    int asked_to_leave = 0;
    QObject::connect(&window, &Contenitore::LeaveRequested, bells, [&] { ++asked_to_leave; });
    for (const auto& test : cases) {
        terminal.component.calls.clear();
        Press(test.button);
        EXPECT_EQ(terminal.component.CallsOf("Rings.Receive").size() +
                      terminal.component.CallsOf("Rings.Send").size(),
                  1U)
            << test.button;
        EXPECT_EQ(std::ranges::count(CallsMade(), test.asked), 1) << test.button;
    }
    EXPECT_EQ(asked_to_leave, 2);
}

TEST_F(FrmSuonerie, WithoutAComponentNothingIsCleared)
{
    Open();
    Entry(0, 1) = kNoon;
    state.Component.reset();
    Press("cmdRiceveSuonerie");
    EXPECT_TRUE(Entry(0, 1) == kNoon);
    EXPECT_EQ(Text("Esito"), "Errore: il componente per Orlo non è disponibile.");
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

}  // namespace
}  // namespace orlo::testing
