// The command around a transfer: progress, delay, calls, failures, and the end of the program.

#include "tests/bells/suonerie_fixture.h"

#include <algorithm>

namespace orlo::testing
{
namespace
{

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
