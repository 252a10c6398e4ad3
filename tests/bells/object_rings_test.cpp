// What is read and sent, ring by ring.

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
    std::string while_told = "not told";
    pc.dialog.on_tell = [&] { while_told = Text("LabelTentativi"); };
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(terminal.component.CallsOf("Rings.Receive"), Calls(3, "Rings.Receive(4, 7, day 0)"));
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore nella ricezione dei dati"));
    EXPECT_EQ(pc.dialog.told.front().informative,
              QStringLiteral("Da domenica in poi non è stato letto niente: 99,Time Out."));
    EXPECT_EQ(Controls().PannelloTentativi->text(), QStringLiteral("Tentativi3/3"));
    EXPECT_EQ(while_told, "Tentativi3/3");
    EXPECT_EQ(Text("LabelTentativi"), "") << "nothing is being tried any more";
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

}  // namespace
}  // namespace orlo::testing
