#include "tests/console/console_fixture.h"

#include <QApplication>
#include <QClipboard>

namespace orlo::testing
{
namespace
{

class SerialConsole : public ConsoleTest
{
protected:
    void Connect(const std::string& settings = {}, const std::vector<std::string>& faults = {})
    {
        ConnectedWindow::Connect(QStringLiteral("Strale"), settings, faults);
        form.open();
    }
    /// What the line answers to any request.
    void LineAnswers(const std::string& bytes)
    {
        Connect();
        pc.com1.answer_to = [bytes](std::string_view) { return std::vector<Arrival>{{{}, bytes}}; };
    }
};

TEST_F(SerialConsole, AnswerAndStatusAreShown)
{
    Connect("badge=1/5/6/6/00001");
    Send("950006");
    EXPECT_EQ(commands, QStringList{QStringLiteral("950006")});
    EXPECT_EQ(Answer(), QStringLiteral("001"));
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(SerialConsole, CommandIsTheBodyOfTheTelegramAsItWasTyped)
{
    Connect();
    Send(" 03 a");
    // 2, 132, " 03 a", checksum 128 + (2 + 132 + 32 + 48 + 51 + 32 + 97) mod 128, CR.
    ASSERT_EQ(pc.com1.sent.size(), 1U);
    EXPECT_EQ(pc.com1.sent[0], std::string("\x02\x84 03 a\x8A\x0D"));
}

TEST_F(SerialConsole, CharactersAreSentAsTheirBytesOfTheCodePage)
{
    Connect();
    Command().setText(QStringLiteral("è€"));
    Press();
    ASSERT_EQ(pc.com1.sent.size(), 1U);
    EXPECT_EQ(pc.com1.sent[0].substr(2, 2), "\xE8\x80");
}

TEST_F(SerialConsole, CharacterOutsideTheCodePageIsNamedAndNothingIsSent)
{
    Connect();
    Command().setText(QStringLiteral("0è→3"));
    Press();
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_EQ(pc.com1.times_opened, 0);
    EXPECT_EQ(Status(),
              QStringLiteral("Errore: il carattere \"→\" (U+2192) non può essere inviato."));
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(QStringLiteral(
        " Comando, terminale 4: Errore: il carattere \"→\" (U+2192) non può essere inviato.")));
    EXPECT_FALSE(Command().hasSelectedText()) << "to be put right";
    Command().setText(QStringLiteral("?"));
    Press();
    EXPECT_EQ(commands, QStringList{QStringLiteral("?")});
}

TEST_F(SerialConsole, PastedControlCharactersAreNamedAndNothingIsSent)
{
    const struct {
        const char* pasted;
        const char* named;
    } cases[] = {{"03\r32\r", "\"<CR>\" (U+000D)"}, {"03\n32", "\"<LF>\" (U+000A)"},
                 {"03\t32", "\"<HT>\" (U+0009)"},   {"03\x7F", "\"<DEL>\" (U+007F)"},
                 {"\xC2\x81", "\"<81>\" (U+0081)"}, {"→\n", "\"<LF>\" (U+000A)"}};
    Connect();
    for (const auto& [pasted, named] : cases) {
        QApplication::clipboard()->setText(QString::fromUtf8(pasted));
        Command().clear();
        Command().paste();
        Press();
        EXPECT_TRUE(pc.com1.sent.empty()) << named;
        EXPECT_EQ(Status(), QStringLiteral("Errore: il carattere %1 non può essere inviato.")
                                .arg(QLatin1String(named)));
    }
}

TEST_F(SerialConsole, CommandThatFollowsAnAnswerReplacesTheOneBefore)
{
    Connect();
    Command().setFocus();
    QTest::keyClicks(&Command(), QStringLiteral("12"));
    QTest::keyClick(&Command(), Qt::Key_Return);
    QTest::keyClicks(&Command(), QStringLiteral("34"));
    QTest::keyClick(&Command(), Qt::Key_Return);
    EXPECT_EQ(commands, (QStringList{QStringLiteral("12"), QStringLiteral("34")}));
    QTest::keyClick(&Command(), Qt::Key_Up);
    EXPECT_EQ(Command().text(), QStringLiteral("12"));
}

TEST_F(SerialConsole, EmptyCommandSendsATelegramWithoutABody)
{
    Connect();
    Send("");
    ASSERT_EQ(pc.com1.sent.size(), 1U);
    EXPECT_EQ(pc.com1.sent[0], std::string("\x02\x84\x86\x0D"));
    EXPECT_EQ(Answer(), QStringLiteral("COMANDO SCONOSCIUTO"));
}

TEST_F(SerialConsole, EmptyAnswerIsAnAnswer)
{
    // SOH, address, checksum of these two, CR.
    LineAnswers("\x01\x84\x85\x0D");
    Send("03");
    EXPECT_EQ(Answer(), QString());
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
}

TEST_F(SerialConsole, ControlCharactersOfTheAnswerAreVisible)
{
    // The data is STX, "A", LF.
    LineAnswers(
        "\x01\x84\x02"
        "A\x0A\xD2\x0D");
    Send("03");
    EXPECT_EQ(Answer(), QStringLiteral("<STX>A<LF>"));
}

TEST_F(SerialConsole, SilenceIsATimeoutAndIsNotRepeated)
{
    Connect("", {"*:silenzio"});
    Send("03");
    EXPECT_EQ(commands.size(), 1);
    EXPECT_EQ(Answer(), QString());
    EXPECT_EQ(Status(), QStringLiteral("Timeout"));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
}

TEST_F(SerialConsole, BadFrameIsShownAsTheAnswer)
{
    Connect("", {"*:checksum-errato"});
    Send("03");
    EXPECT_EQ(Answer(), QStringLiteral("RX ERROR"));
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
}

TEST_F(SerialConsole, PortThatDoesNotOpenIsTheStatus)
{
    Connect();
    pc.com1.device_missing = true;
    Send("03");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(SerialConsole, TerminalWithoutAPortStandsInTheLineOfTheLastCommand)
{
    Connect();
    Controls().ComboPorta->Show(QString());
    Send("03");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Outcome(), QString());
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(
        QStringLiteral(" Comando, terminale 4: nessuna porta")));
}

TEST_F(SerialConsole, StatusIsRenewedWhenItIsTheSameAgain)
{
    Connect();
    Send("03");
    Send("03");
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
    Controls().PannelloComunicazione->setText(QStringLiteral("Timeout"));
    pc.com1.device_missing = true;
    Send("03");
    EXPECT_EQ(Status(), QStringLiteral("Errore aprendo la COM"));
}

TEST_F(SerialConsole, NoDelayIsMadeBeforeACommand)
{
    Connect();
    state.TerminalTable[kTerminal - 1].Ritardo = 0.9F;
    const auto before = pc.clock.Passed();
    Send("03");
    EXPECT_LT((pc.clock.Passed() - before).count(), 200);
}

TEST_F(SerialConsole, TerminalNumber0AnswersNothingAtOnce)
{
    Connect();
    window.PrepareCurrentTerminal();
    state.CurrentTerminalNumber = 0;
    const auto before = pc.clock.Passed();
    const CommandAnswer answer = InviaComando(window, "03", "");
    EXPECT_EQ(answer.received_data, "");
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(pc.clock.Passed(), before);
    ASSERT_EQ(pc.com1.sent.size(), 1U);
    EXPECT_EQ(pc.com1.sent[0], std::string("\x02\x80"
                                           "03\xE5\x0D"));
}

TEST_F(SerialConsole, Terminal32IsAddressedAndHeard)
{
    Register(32, QStringLiteral("Strale"));
    form.open();
    // SOH, address 128 + 32, "OK", checksum 128 + (1 + 160 + 79 + 75) mod 128, CR.
    pc.com1.answer_to = [](std::string_view) {
        return std::vector<Arrival>{{{},
                                     "\x01\xA0"
                                     "OK\xBB\x0D"}};
    };
    Send("03");
    ASSERT_EQ(pc.com1.sent.size(), 1U);
    EXPECT_EQ(pc.com1.sent[0],
              "\x02\xA0"
              "03\x85\x0D");
    EXPECT_EQ(Answer(), QStringLiteral("OK"));
}

TEST_F(SerialConsole, OpenLineIsUsedAndLeftOpen)
{
    Connect();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Send("03");
    EXPECT_EQ(Status(), QStringLiteral("Comunicazione OK"));
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_EQ(pc.com1.times_opened, 1);
}

TEST_F(SerialConsole, OutcomeStaysInTheMainWindowWithItsTask)
{
    Connect();
    Send("03");
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(
        QStringLiteral(" Comando, terminale 4: Comunicazione OK")));
}

}  // namespace
}  // namespace orlo::testing
