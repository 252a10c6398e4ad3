#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "status/test.h"
#include "tests/support/object_window.h"

namespace orlo::testing
{
namespace
{

class ObjectStatus : public ObjectWindow
{
protected:
    QString State() const { return Controls().PannelloStato->text(); }
    QString Time() const { return Controls().OraTerminale->text(); }
    QString Difference() const { return Controls().LabelScarto->text(); }
    /// And forgets all calls.
    Calls LastTwoCalls()
    {
        Calls calls = std::exchange(terminal.component.calls, {});
        calls.erase(calls.begin(), calls.end() - 2);
        return calls;
    }
};

TEST_F(ObjectStatus, TestShowsTheReleaseAndTheMemory)
{
    Connect("Orlo");
    cmdTest_Click(window);
    EXPECT_EQ(CallsMade(), (Calls{"OpenComunication(1, 38400)", "FPrVersion.Receive(4, 7)",
                                  "GetRecordsInfo(4, 7)"}));
    EXPECT_EQ(Controls().PannelloVersione->text(), QStringLiteral("Release: DEFABCGHIJ"));
    EXPECT_EQ(State(), QString());
    EXPECT_EQ(Controls().PannelloCapacita->text(), QStringLiteral("1000"));
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(state.CurrentTerminalNumber, kTerminal);
}

TEST_F(ObjectStatus, SipaIsTestedLikeAnOrlo)
{
    Connect("Sipa");
    cmdTest_Click(window);
    EXPECT_EQ(CallsMade(), (Calls{"OpenComunication(1, 38400)", "FPrVersion.Receive(4, 7)",
                                  "GetRecordsInfo(4, 7)"}));
    EXPECT_EQ(Controls().PannelloVersione->text(), QStringLiteral("Release: DEFABCGHIJ"));
}

TEST_F(ObjectStatus, RefusedTestShowsItsCodeAndAsksNothingMore)
{
    terminal.version_failure = "99,Time Out";
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(model);
        cmdTest_Click(window);
        EXPECT_EQ(State(), QStringLiteral("Errore:99,Time Out")) << model;
        EXPECT_EQ(Controls().PannelloVersione->text(), QString()) << model;
        EXPECT_EQ(Outcome(), QString()) << model;
        EXPECT_EQ(CallsMade().back(), "FPrVersion.Receive(4, 7)") << model;
    }
}

TEST_F(ObjectStatus, RefusedTestOpensNoPortOfItsOwnAndHangsNothingUp)
{
    terminal.version_failure = "99,Time Out";
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(model);
        cmdTest_Click(window);
        EXPECT_EQ(pc.com1.times_opened, 0) << model;
        EXPECT_TRUE(pc.com1.sent.empty()) << model;
        EXPECT_TRUE(state.TelegramLinkOpen) << model;
    }
}

TEST_F(ObjectStatus, ReleaseIsShownOfWhateverLength)
{
    Connect();
    for (const auto& [build, shown] :
         {std::pair("", "Release: "), std::pair("ABC", "Release: ABC"),
          std::pair("Nov  4 201014:07:09", "Release:   4Nov 201014:07:09")}) {
        terminal.last_build = build;
        cmdTest_Click(window);
        EXPECT_EQ(Controls().PannelloVersione->text(), QString::fromLatin1(shown)) << build;
    }
}

TEST_F(ObjectStatus, RefusedMemoryIsTheOutcomeOfTheTest)
{
    Connect();
    terminal.component.records_info = {"21,Errore linea"};
    cmdTest_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore:21,Errore linea"));
    EXPECT_EQ(Controls().PannelloVersione->text(), QStringLiteral("Release: DEFABCGHIJ"));
}

TEST_F(ObjectStatus, EveryCallWaitsForTheTerminalsDelay)
{
    Connect("Orlo", /*delay=*/0.9F);
    std::map<std::string, long> at;
    terminal.component.on_call = [&](const std::string& call) {
        at[call] = static_cast<long>(pc.clock.Passed().count());
    };
    cmdTest_Click(window);
    EXPECT_GE(at["FPrVersion.Receive(4, 7)"] - at["OpenComunication(1, 38400)"], 900);
    cmdSincro_Click(window);
    EXPECT_GE(at["TimeData.Send(4, 7)"] - at["OpenComunication(1, 38400)"], 900);
    EXPECT_GE(at["TimeData.Receive(4, 7)"] - at["TimeData.Send(4, 7)"], 900);
}

TEST_F(ObjectStatus, ClockIsShownBesideThePcsAsTheComponentSeesIt)
{
    Connect();
    terminal.pc_time = "07:59:58";
    cmdLeggeOra_Click(window);
    EXPECT_EQ(CallsMade(), (Calls{"OpenComunication(1, 38400)", "TimeData.Receive(4, 7)",
                                  "TimeData.GetSystem()"}));
    EXPECT_EQ(Time(), QStringLiteral("08:00:03"));
    EXPECT_EQ(Controls().DataTerminale->text(), QStringLiteral("05/03/2026"));
    EXPECT_EQ(Controls().Sistema->text(), QStringLiteral("05/03/2026 - 07:59:58"));
    EXPECT_EQ(Difference(), QStringLiteral("+5 s"));
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale 4:"));
}

TEST_F(ObjectStatus, ClockThatCannotBeReadIsToldInABox)
{
    Connect();
    terminal.clock_read_failure = "99,Time Out";
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore = 99,Time Out"));
    EXPECT_EQ(Time(), QString());
    EXPECT_EQ(Controls().Sistema->text(), QString());
    EXPECT_EQ(Outcome(), QString());
}

TEST_F(ObjectStatus, SettingSendsThePcsTimeAndReadsItBack)
{
    Connect("Sipa");
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Difference(), QStringLiteral("+3 s"));
    terminal.component.calls.clear();
    EXPECT_TRUE(cmdSincro_Click(window).done);
    EXPECT_EQ(CallsMade(),
              (Calls{"endcomunication()", "OpenComunication(1, 38400)", "TimeData.GetSystem()",
                     "TimeData.Send(4, 7)", "TimeData.Receive(4, 7)", "TimeData.GetSystem()"}));
    EXPECT_EQ(Difference(), QStringLiteral("0 s"));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectStatus, ClockThatCannotBeSetIsToldAndNotReadBack)
{
    Connect();
    terminal.clock_set_failure = "ER";
    const ClockOutcome outcome = cmdSincro_Click(window);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore = ER"));
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore = ER"));
    EXPECT_EQ(CallsMade().back(), "TimeData.Send(4, 7)");
}

TEST_F(ObjectStatus, ClockThatCannotBeReadBackIsNotDone)
{
    Connect();
    terminal.clock_read_failure = "99,Time Out";
    const ClockOutcome outcome = cmdSincro_Click(window);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore = 99,Time Out"));
    EXPECT_EQ(pc.dialog.told.size(), 1U);
}

TEST_F(ObjectStatus, WhatTheComponentThrowsInATestIsTheCaption)
{
    Connect();
    for (const char* call :
         {"FPrVersion.Receive(4, 7)", "GetRecordsInfo(4, 7)", "OpenComunication(1, 38400)"}) {
        LetThrow(call);
        cmdTest_Click(window);
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << call;
    }
}

TEST_F(ObjectStatus, WhatTheComponentThrowsInAClockCommandIsCaptionAndReason)
{
    Connect();
    for (const char* call : {"TimeData.GetSystem()", "TimeData.Send(4, 7)",
                             "TimeData.Receive(4, 7)", "OpenComunication(1, 38400)"}) {
        LetThrow(call);
        EXPECT_EQ(cmdSincro_Click(window).reason, QStringLiteral("Errore del componente: guasto"))
            << call;
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << call;
    }
}

class ObjectHangUpThrows : public ObjectStatus, public ::testing::WithParamInterface<const char*>
{
protected:
    /// A terminal behind a modem that answers every call.
    void SetUp() override
    {
        ObjectStatus::SetUp();
        Connect();
        Controls().CheckModem->setChecked(true);
        terminal.component.received_texts = {"CONNECT"};
        LetThrow(GetParam());
    }
    static QString Failure() { return QStringLiteral("Errore del componente: guasto"); }
    QString LastCommand(const std::function<void()>& command)
    {
        window.RunCommand(Controls().cmdTest, QStringLiteral("Prova in corso…"), EscapeUse::Ignored,
                          command);
        return Controls().LabelUltimoComando->text().section(u' ', 1);
    }
};

TEST_P(ObjectHangUpThrows, AndTheLineOfTheLastCommandSaysSo)
{
    const QString failed = QStringLiteral("Prova, terminale 4: ") + Failure();
    EXPECT_EQ(LastCommand([this] { cmdTest_Click(window); }), failed);
    terminal.component.received_texts = {"CONNECT"};
    EXPECT_EQ(LastCommand([this] { cmdLeggeOra_Click(window); }), failed);
    terminal.component.received_texts = {"CONNECT"};
    EXPECT_EQ(LastCommand([this] { cmdSincro_Click(window); }), failed);
}

TEST_P(ObjectHangUpThrows, AndTheCaptionSaysSoBehindATest)
{
    cmdTest_Click(window);
    EXPECT_EQ(Controls().PannelloVersione->text(), QStringLiteral("Release: DEFABCGHIJ"));
    EXPECT_EQ(Outcome(), Failure());
}

TEST_P(ObjectHangUpThrows, AndTheCaptionSaysSoBehindAClockRead)
{
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Time(), QString::fromStdString(terminal.terminal_time));
    EXPECT_EQ(Outcome(), Failure());
}

TEST_P(ObjectHangUpThrows, AndTheClockThatWasSetIsNotDone)
{
    const ClockOutcome outcome = cmdSincro_Click(window);
    EXPECT_EQ(terminal.terminal_time, terminal.pc_time);
    EXPECT_FALSE(outcome.done) << "the line may be up, and costs money";
    EXPECT_EQ(outcome.reason, Failure());
    EXPECT_EQ(Outcome(), Failure());
}

INSTANTIATE_TEST_SUITE_P(Pulse, ObjectHangUpThrows, ::testing::Values("DTR(false)", "DTR(true)"),
                         [](const auto& call) {
                             return std::string(call.param) == "DTR(false)" ? "Drop" : "Raise";
                         });

TEST_F(ObjectStatus, WithoutAComponentTheCaptionSaysSo)
{
    Connect();
    state.Component.reset();
    const QString missing = QStringLiteral("Errore: il componente per Orlo non è disponibile.");
    cmdTest_Click(window);
    EXPECT_EQ(Outcome(), missing);
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Outcome(), missing);
    EXPECT_EQ(cmdSincro_Click(window).reason, missing);
}

TEST_F(ObjectStatus, ModemOfAnOrloHangsUpBehindEachCommand)
{
    Connect("Orlo");
    Controls().CheckModem->setChecked(true);
    terminal.component.received_texts = {"OK", "OK", "OK"};
    cmdTest_Click(window);
    EXPECT_EQ(LastTwoCalls(), (Calls{"DTR(false)", "DTR(true)"}));
    cmdLeggeOra_Click(window);
    EXPECT_EQ(LastTwoCalls(), (Calls{"DTR(false)", "DTR(true)"}));
    cmdSincro_Click(window);
    EXPECT_EQ(LastTwoCalls(), (Calls{"DTR(false)", "DTR(true)"}));
}

TEST_F(ObjectStatus, ModemOfASipaIsNotPulsed)
{
    Connect("Sipa");
    Controls().CheckModem->setChecked(true);
    terminal.component.received_texts = {"OK", "OK", "OK"};
    cmdTest_Click(window);
    cmdLeggeOra_Click(window);
    cmdSincro_Click(window);
    EXPECT_TRUE(terminal.component.CallsOf("DTR").empty());
}

TEST_F(ObjectStatus, OutcomesWithoutACaptionStandInTheLineOfTheLastCommand)
{
    Connect();
    const auto run = [this] {
        window.RunCommand(Controls().cmdSincro, QStringLiteral("Sincronizzazione in corso…"),
                          EscapeUse::Ignored, [this] { cmdSincro_Click(window); });
        return Controls().LabelUltimoComando->text();
    };
    EXPECT_EQ(run(), QStringLiteral("08:00:00 Sincronizzazione, terminale 4: Comunicazione OK"));
    terminal.clock_set_failure = "ER";
    EXPECT_EQ(run(), QStringLiteral("08:00:00 Sincronizzazione, terminale 4: Errore = ER"));
}

}  // namespace
}  // namespace orlo::testing
