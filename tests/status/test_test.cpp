#include "status/test.h"

#include "tests/support/connected_window.h"

namespace orlo::testing
{
namespace
{

constexpr const char* kSerialModels[] = {"Orlo II", "Strale",  "Strale N",
                                         "Lumo",    "OrloTre", "SuperStrale"};

class LinkTest : public ConnectedWindow
{
protected:
    QString State() const { return Controls().PannelloStato->text(); }
    QString Version() const { return Controls().PannelloVersione->text(); }
};

TEST_F(LinkTest, EachModelsAnswerIsCutAtItsOwnPosition)
{
    struct Case {
        const char* model;
        const char* state;
        const char* version;
    };
    const Case cases[] = {
        {"Orlo II", "IN LINEA ", " Gio 05/03/26 Rel. 3.04 08:00:00"},
        {"Strale", "IN LINEA ", " Gio 05/03/26 Rel. 2.31 08:00:00"},
        {"Strale N", "IN LINEA ", " Gio 05/03/26 Rel. 4.02 08:00:00"},
        {"Lumo", "IN LINEA ", " Gio 05/03/26 Rel. 2.07 08:00:00"},
        {"OrloTre", "IN LINEA  ", " 05/03/26 Rel. 1.20 08:00:00"},
        {"SuperStrale", "IN LINEA  ", " 05/03/26 Rel. 5.11 08:00:00"},
    };
    for (const Case& c : cases) {
        Connect(QString::fromLatin1(c.model));
        cmdTest_Click(window);
        EXPECT_EQ((QStringList{State(), Version(), Outcome()}),
                  (QStringList{QString::fromLatin1(c.state), QString::fromLatin1(c.version),
                               QStringLiteral("Comunicazione OK")}))
            << c.model;
        EXPECT_FALSE(pc.com1.PortOpen()) << c.model;
    }
}

TEST_F(LinkTest, AsksWith03AndThenForTheMemory)
{
    Connect(QStringLiteral("Strale"), "timbrature=20,acquisite=5");
    cmdTest_Click(window);
    ASSERT_EQ(pc.com1.sent.size(), 2U);
    EXPECT_EQ(pc.com1.sent[0],
              "\x02\x84"
              "03\xE9\r");
    EXPECT_EQ(pc.com1.sent[1],
              "\x02\x84"
              "32\xEB\r");
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("20"));
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("15"));
    EXPECT_EQ(pc.clock.Passed().count(), 0) << "no terminal delay";
}

TEST_F(LinkTest, ControlCharacterInTheAnswerIsShownAsABlank)
{
    Connect(QStringLiteral("Strale"));
    pc.com1.answer_to = [](std::string_view) {
        return std::vector<Arrival>{{{},
                                     "\x01\x84"
                                     "AB\nDEFGHIJK\xCE\r"}};
    };
    cmdTest_Click(window);
    EXPECT_EQ(State(), QStringLiteral("AB DEFGHI"));
    EXPECT_EQ(Version(), QStringLiteral("IJK"));
}

TEST_F(LinkTest, BadFrameIsShownAsAnAnswer)
{
    Connect(QStringLiteral("Strale"), {}, {"03*:checksum-errato"});
    cmdTest_Click(window);
    EXPECT_EQ(State(), QStringLiteral("RX ERROR"));
    EXPECT_EQ(Version(), QString());
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(commands, (QStringList{QStringLiteral("03"), QStringLiteral("32")}));
}

TEST_F(LinkTest, TailOfABadFrameOnASlowLineIsNotTakenForTheMemory)
{
    for (const char* model : kSerialModels) {
        // The frame behind its early CR: some forty bytes, more than a second.
        Connect(QString::fromLatin1(model), "timbrature=20,acquisite=5",
                {"03*:cr-prima", "03*:byte-singoli=33"});
        cmdTest_Click(window);
        EXPECT_EQ(
            (QStringList{State(), Version(), Outcome(), Controls().PannelloTimbrature->text(),
                         Controls().PannelloAcquisire->text()}),
            (QStringList{QStringLiteral("RX ERROR"), QString(), QStringLiteral("Comunicazione OK"),
                         QStringLiteral("20"), QStringLiteral("15")}))
            << model;
        EXPECT_FALSE(pc.com1.PortOpen()) << model;
    }
}

TEST_F(LinkTest, SilentTerminalOfEachModelShowsTimeoutAndLeavesThePortOpen)
{
    for (const char* model : kSerialModels) {
        Connect(QString::fromLatin1(model), {}, {"03*:silenzio"});
        cmdTest_Click(window);
        EXPECT_EQ((QStringList{State(), Version(), Outcome()}),
                  (QStringList{QString(), QString(), QStringLiteral("Timeout")}))
            << model;
        EXPECT_EQ(commands, QStringList{QStringLiteral("03")}) << model;
        EXPECT_TRUE(pc.com1.PortOpen()) << model;
    }
}

TEST_F(LinkTest, TimeOutWithTheModemTickedHangsUpAlsoWithoutASession)
{
    for (const char* model : kSerialModels) {
        Connect(QString::fromLatin1(model), {}, {"03*:silenzio"});
        Controls().CheckModem->setChecked(true);
        pc.com1.line_changes.clear();
        cmdTest_Click(window);
        EXPECT_EQ(pc.com1.sent, (std::vector<std::string>{"\x02\x84"
                                                          "03\xE9\r",
                                                          "+", "+", "+", "ATH\r"}))
            << model;
        EXPECT_EQ(pc.com1.line_changes, (std::vector<std::string>{"RTS 0", "DTR 0"})) << model;
        EXPECT_EQ(Outcome(), QStringLiteral("Timeout")) << model;
        EXPECT_TRUE(pc.com1.PortOpen()) << model;
    }
}

TEST_F(LinkTest, OfAnOpenLineOfEachModelLeavesItOpen)
{
    for (const char* model : kSerialModels) {
        Connect(QString::fromLatin1(model));
        ASSERT_TRUE(pc.com1.PortOpen() || pc.com1.SetPortOpen(true));
        state.SessionPort = 1;
        Controls().Verde->show();
        cmdTest_Click(window);
        EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK")) << model;
        EXPECT_EQ(pc.com1.times_opened, 1) << model;
        EXPECT_TRUE(pc.com1.PortOpen()) << model;
    }
}

TEST_F(LinkTest, WithoutATypeOrAPortSendsNothingAndTheLineOfTheLastCommandSaysWhy)
{
    Connect(QStringLiteral("Strale"));
    const auto run = [this] {
        window.RunCommand(Controls().cmdTest, QStringLiteral("Test in corso…"), EscapeUse::Ignored,
                          [this] { cmdTest_Click(window); });
        return Controls().LabelUltimoComando->text().section(u' ', 1);
    };
    EXPECT_EQ(run(), QStringLiteral("Test, terminale 4: Comunicazione OK"));
    commands.clear();
    Controls().ComboPorta->Show(QString());
    EXPECT_EQ(run(), QStringLiteral("Test, terminale 4: nessuna porta"));
    Controls().ComboTipoTerminale->Show(QString());
    EXPECT_EQ(run(), QStringLiteral("Test, terminale 4: il tipo di terminale non è conosciuto"));
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Outcome(), QString());
}

TEST_F(LinkTest, TimeOutLeavesThePortOpenAndTheNextTestWorks)
{
    Connect(QStringLiteral("OrloTre"), "timbrature=3", {"1:silenzio"});
    Controls().PannelloTimbrature->setText(QStringLiteral("77"));
    cmdTest_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(State(), QString());
    EXPECT_EQ(commands, QStringList{QStringLiteral("03")});
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("77"));
    EXPECT_TRUE(pc.com1.PortOpen());
    cmdTest_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(State(), QStringLiteral("IN LINEA  "));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(LinkTest, TimeOutByModemHangsUpWithoutClosingThePort)
{
    Connect(QStringLiteral("Strale"), {}, {"03*:silenzio"});
    Controls().CheckModem->setChecked(true);
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    cmdTest_Click(window);
    const std::vector<std::string> sent(pc.com1.sent.begin() + 1, pc.com1.sent.end());
    EXPECT_EQ(sent, (std::vector<std::string>{"+", "+", "+", "ATH\r"}));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_EQ(pc.com1.times_opened, 1);
}

TEST_F(LinkTest, AnswerByModemHangsNothingUp)
{
    Connect(QStringLiteral("Strale"), {}, {"03*:checksum-errato"});
    Controls().CheckModem->setChecked(true);
    cmdTest_Click(window);
    EXPECT_EQ(commands, (QStringList{QStringLiteral("03"), QStringLiteral("32")}));
}

TEST_F(LinkTest, MemoryThatIsNotAnsweredIsTheOutcome)
{
    Connect(QStringLiteral("Lumo"), {}, {"32*:silenzio"});
    cmdTest_Click(window);
    EXPECT_EQ(State(), QStringLiteral("IN LINEA "));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(LinkTest, PortThatDoesNotOpenIsTheOutcomeAndNothingIsSent)
{
    Connect(QStringLiteral("Strale"));
    pc.com1.device_missing = true;
    cmdTest_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_FALSE(state.SerialPortOk);
}

TEST_F(LinkTest, EmptiesWhatWasShownOfStateAndVersion)
{
    Connect(QStringLiteral("Strale"), {}, {"03*:silenzio"});
    Controls().PannelloStato->setText(QStringLiteral("vecchio"));
    Controls().PannelloVersione->setText(QStringLiteral("vecchia"));
    cmdTest_Click(window);
    EXPECT_EQ(State(), QString());
    EXPECT_EQ(Version(), QString());
}

}  // namespace
}  // namespace orlo::testing
