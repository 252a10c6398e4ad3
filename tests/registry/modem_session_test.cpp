#include "registry/modem_session.h"

#include "registry/contenitore_controls.h"
#include "registry/list_line.h"
#include "registry/port_session.h"
#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

#include <map>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

/// The main window over a test PC: terminal 1 on COM1 and terminal 2 on COM2 by modem, terminal 3
/// on COM1 directly; a modem on COM1 that answers everything well.
class ModemSession : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    ProgramState state;
    Contenitore window{state, pc.workstation};
    const Ui::Contenitore& controls = window.Controls();
    std::map<std::string, std::vector<testing::Arrival>> answers = {
        {"AT\r", {{0ms, "\r\nOK\r\n"}}},
        {"ATZQ0E0V1X1\r", {{0ms, "\r\nOK\r\n"}}},
        {"ATD0123\r", {{5s, "\r\nCONNECT 9600\r\n"}}},
    };

    void SetUp() override
    {
        window.CaricaComboRitardo();
        window.CaricaComboTipoTerminale();
        window.CaricaComboPorta();
        window.CaricaComboVelocita();
        Register(1, /*port=*/1, kTrue);
        Register(2, /*port=*/2, kTrue);
        Register(3, /*port=*/1, /*modem=*/0);
        Select(1);
        pc.com1.answer_to = [this](std::string_view sent) { return answers[std::string(sent)]; };
    }
    void Register(int number, std::int16_t port, std::int16_t modem)
    {
        TerminalRecord& slot = state.TerminalTable.at(static_cast<std::size_t>(number - 1));
        slot.Terminale = static_cast<std::int16_t>(number);
        slot.Tipo = static_cast<std::int16_t>(TerminalType::Strale);
        slot.Attivo = kTrue;
        slot.Porta = port;
        slot.Velocita = 9600;
        slot.AbilitazioneModem = modem;
        slot.Modem = QStringLiteral("  0123  ");
        window.AddTerminalLine(CostruzioneStringa(state, number));
    }
    void Select(int terminal) { window.SelectTerminalLine(terminal - 1); }

    QString Caption() const { return controls.PannelloComunicazione->text(); }
    /// "Verde", "Rosso", or nothing when neither shows.
    std::string Light() const
    {
        EXPECT_FALSE(!controls.Verde->isHidden() && !controls.Rosso->isHidden());
        if (!controls.Verde->isHidden()) return "Verde";
        return controls.Rosso->isHidden() ? "" : "Rosso";
    }
    /// A serial command of the selected terminal; true when it got a port to talk through.
    bool Command()
    {
        window.PrepareCurrentTerminal();
        const PortSession session(window);
        return session.Port() != nullptr;
    }
    std::size_t HangUps() const
    {
        return static_cast<std::size_t>(
            std::count(pc.com1.sent.begin(), pc.com1.sent.end(), "ATH\r"));
    }
};

struct ResultCase {
    const char* name;
    std::vector<testing::Arrival> dialled;
    bool initialised;
    const char* caption;
    const char* light;
};

TEST_F(ModemSession, EveryDialResultHasItsCaptionAndLight)
{
    const ResultCase cases[] = {
        {"connected", {{5s, "\r\nCONNECT\r\n"}}, true, "Modem Log In", "Verde"},
        {"no carrier", {{5s, "\r\nNO CARRIER\r\n"}}, true, "Modem Line No Carrier", "Rosso"},
        {"no tone", {{5s, "\r\nNO DIAL TONE\r\n"}}, true, "Modem Line No Dial Tone", "Rosso"},
        {"busy", {{5s, "\r\nBUSY\r\n"}}, true, "Modem Line Busy", "Rosso"},
        {"no modem", {}, false, "Modem Init Error", "Rosso"},
        {"silence", {}, true, "Modem Not Connected", "Rosso"},
    };
    pc.dialog.present = false;  // so that the silence ends by itself
    for (const ResultCase& c : cases) {
        SCOPED_TRACE(c.name);
        answers["ATD0123\r"] = c.dialled;
        answers["AT\r"] = {{0ms, c.initialised ? "\r\nOK\r\n" : ""}};
        state.LineReceiveBuffer.clear();
        LogIn_Click(window);
        EXPECT_EQ(Caption(), QLatin1String(c.caption));
        EXPECT_EQ(Light(), c.light);
        const bool up = std::string(c.light) == "Verde";
        EXPECT_EQ(pc.com1.PortOpen(), up);
        EXPECT_EQ(state.SessionPort, up ? 1 : 0);
        LogOff_Click(window);
    }
}

TEST_F(ModemSession, LogInDialsTheTrimmedNumberWithTheSettingsOfTheTerminal)
{
    LogIn_Click(window);
    EXPECT_EQ(pc.com1.CommPort(), 1);
    EXPECT_EQ(pc.com1.Settings(), "9600,n,8,1");
    EXPECT_EQ(pc.com1.Handshaking(), kRtsCtsHandshaking);
    EXPECT_EQ(pc.com1.sent.back(), "ATD0123\r");
    EXPECT_EQ(state.CurrentTerminalNumber, 1);
    EXPECT_TRUE(state.CurrentModem);
}

TEST_F(ModemSession, WithoutATickedModemLogInOnlyOpensThePort)
{
    Select(3);
    LogIn_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Modem Log In"));
    EXPECT_EQ(Light(), "Verde");
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_EQ(pc.com1.Handshaking(), kNoHandshaking);
    EXPECT_EQ(pc.clock.Passed(), 0ms);

    LogOff_Click(window);
    EXPECT_TRUE(pc.com1.sent.empty()) << "nothing to hang up";
    EXPECT_EQ(Light(), "Rosso");
}

TEST_F(ModemSession, PortThatDoesNotOpenShowsNeitherLight)
{
    pc.com1.device_missing = true;
    controls.Rosso->show();
    LogIn_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_EQ(Light(), "");
    EXPECT_FALSE(state.SerialPortOk);
}

TEST_F(ModemSession, PortOutsideOneToFourDoesNothing)
{
    controls.ComboPorta->Show(QString());
    LogIn_Click(window);
    EXPECT_EQ(Caption(), QString());
    EXPECT_EQ(Light(), "");
    EXPECT_TRUE(pc.com1.sent.empty());
}

TEST_F(ModemSession, LogInWithoutAPortStandsInTheLineOfTheLastCommand)
{
    controls.ComboPorta->Show(QString());
    window.RunCommand(controls.cmdLogIn, QStringLiteral("Collegamento in corso…"),
                      EscapeUse::Heeded, [this] { LogIn_Click(window); });
    EXPECT_EQ(Caption(), QString());
    EXPECT_TRUE(controls.LabelUltimoComando->text().endsWith(
        QStringLiteral(" Collegamento, terminale 1: nessuna porta")));
}

TEST_F(ModemSession, RefusedLineIsShownInTheSystemsWords)
{
    pc.com1.refuses = "RTS";
    LogIn_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Errore: RTS: rifiutato"));
    EXPECT_EQ(Light(), "Rosso");
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(ModemSession, CommandsUseTheOpenLineAndLeaveItOpen)
{
    LogIn_Click(window);
    EXPECT_TRUE(Command());
    EXPECT_TRUE(Command());
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
    EXPECT_TRUE(state.SerialPortOk);
}

TEST_F(ModemSession, LogOffHangsUpClosesAndTellsOfSuccess)
{
    LogIn_Click(window);
    LogOff_Click(window);
    EXPECT_EQ(HangUps(), 1U);
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_EQ(pc.com1.Handshaking(), kNoHandshaking) << "a direct cable has no CTS";
    EXPECT_TRUE(state.SerialPortOk) << "the close succeeded";
    EXPECT_EQ(Caption(), QStringLiteral("Modem Log Off"));
    EXPECT_EQ(Light(), "Rosso");
    EXPECT_TRUE(Command());
    EXPECT_EQ(pc.com1.times_opened, 2) << "commands open the port themselves again";
}

TEST_F(ModemSession, LogOffWithoutALineFollowsTheLastPortOperation)
{
    Select(3);
    ASSERT_TRUE(Command());
    LogOff_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Modem Log Off"));
    EXPECT_EQ(Light(), "Rosso");

    controls.Rosso->hide();
    pc.com1.device_missing = true;
    ASSERT_FALSE(Command());
    LogOff_Click(window);
    EXPECT_EQ(Light(), "");
    EXPECT_EQ(Caption(), QStringLiteral("Errore aprendo la COM"));
}

const QString kOtherLine =
    QStringLiteral("Errore: è collegata la linea della COM 1, non quella di questo terminale.");

TEST_F(ModemSession, TerminalOfAnotherPortIsToldOfTheOpenLineAndSendsNothing)
{
    LogIn_Click(window);
    const std::size_t sent = pc.com1.sent.size();
    Select(2);
    EXPECT_FALSE(Command());
    EXPECT_EQ(Caption(), kOtherLine);
    EXPECT_FALSE(state.SerialPortOk);
    for (const auto& button : {LogIn_Click, LogOff_Click}) {
        controls.PannelloComunicazione->clear();
        button(window);
        EXPECT_EQ(Caption(), kOtherLine);
        EXPECT_EQ(Light(), "Verde");
    }
    EXPECT_EQ(pc.com1.sent.size(), sent);
    EXPECT_TRUE(pc.com2.sent.empty());
    EXPECT_EQ(pc.com2.times_opened, 0);
}

TEST_F(ModemSession, LogOffClosesTheLineItHoldsThoughTheCurrentPortIsAnother)
{
    LogIn_Click(window);
    Select(2);
    ASSERT_FALSE(Command());
    ASSERT_EQ(state.CurrentPort, 2);
    Select(1);
    LogOff_Click(window);
    EXPECT_EQ(HangUps(), 1U);
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_EQ(Light(), "Rosso");
}

TEST_F(ModemSession, DialledLineIsHungUpThoughTheTickIsAnotherTerminals)
{
    LogIn_Click(window);
    Select(3);
    LogOff_Click(window);
    EXPECT_EQ(HangUps(), 1U);
}

TEST_F(ModemSession, LogInOverACallHangsUpFirst)
{
    for (const int terminal : {1, 3}) {
        Select(1);
        LogIn_Click(window);
        Select(terminal);
        pc.com1.sent.clear();
        LogIn_Click(window);
        EXPECT_EQ(HangUps(), 1U) << "terminal " << terminal;
        EXPECT_EQ(pc.com1.sent.at(3), "ATH\r") << "behind the three +";
        EXPECT_EQ(Caption(), QStringLiteral("Modem Log In"));
        EXPECT_EQ(Light(), "Verde");
        LogOff_Click(window);
    }
}

TEST_F(ModemSession, LogInOnTheSameLineDialsAgain)
{
    LogIn_Click(window);
    LogIn_Click(window);
    EXPECT_EQ(std::count(pc.com1.sent.begin(), pc.com1.sent.end(), "ATD0123\r"), 2);
    EXPECT_EQ(Light(), "Verde");
    EXPECT_EQ(pc.com1.times_opened, 2);
}

TEST_F(ModemSession, SecondLogInThatFailsLeavesTheLineDown)
{
    LogIn_Click(window);
    answers["ATD0123\r"] = {{1s, "BUSY\r"}};
    LogIn_Click(window);
    EXPECT_EQ(Light(), "Rosso");
    EXPECT_EQ(state.SessionPort, 0);
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(ModemSession, LostLineFailsCommandsClearlyAndLogOffLeadsDown)
{
    LogIn_Click(window);
    pc.com1.line_lost = true;
    EXPECT_FALSE(Command());
    EXPECT_EQ(Caption(), QStringLiteral("Errore: la linea è caduta. Premere Log-off."));
    EXPECT_EQ(Light(), "Verde");
    LogOff_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Modem Log Off"));
    EXPECT_EQ(Light(), "Rosso");
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(Command()) << "the port opens as before";
}

TEST_F(ModemSession, LogOffLeadsDownThoughThePortIsClosedAlready)
{
    LogIn_Click(window);
    ASSERT_TRUE(pc.com1.SetPortOpen(false));
    LogOff_Click(window);
    EXPECT_EQ(Light(), "Rosso");
}

TEST_F(ModemSession, AbortedDiallingLeavesTheLineDown)
{
    answers["ATD0123\r"] = {};
    pc.dialog.answer_yes = true;
    pc.clock.on_tick = [this] {
        if (pc.clock.Passed() == 60s) pc.escape.pressed = true;
    };
    LogIn_Click(window);
    EXPECT_EQ(Caption(), QStringLiteral("Modem Not Connected"));
    EXPECT_EQ(Light(), "Rosso");
    EXPECT_LE(pc.clock.Passed(), 64s);
}

TEST_F(ModemSession, ProgramThatEndsItLeavesASecondOfSilenceBeforeTheEscape)
{
    LogIn_Click(window);
    Select(2);
    const auto before = pc.clock.Passed();
    std::chrono::milliseconds first_escape{0};
    pc.com1.answer_to = [&](std::string_view sent) -> std::vector<testing::Arrival> {
        if (sent == "+" && first_escape == 0ms) first_escape = pc.clock.Passed() - before;
        return {};
    };
    EndSession(window);
    EXPECT_GE(first_escape, 1400ms);
    EXPECT_EQ(HangUps(), 1U) << "whatever terminal is selected";
    EXPECT_EQ(Light(), "Rosso");
}

TEST_F(ModemSession, ProgramThatEndsIsNotKeptByAHangUpThatIsRefused)
{
    for (const char* line : {"RTS", "DTR"}) {
        SCOPED_TRACE(line);
        pc.com1.refuses.clear();
        LogIn_Click(window);
        ASSERT_EQ(Light(), "Verde");
        pc.com1.refuses = line;
        pc.com1.answer_to = nullptr;
        EndSession(window);
        EXPECT_EQ(pc.com1.sent.back(), "ATH\r");
        EXPECT_FALSE(pc.com1.PortOpen());
        EXPECT_EQ(Light(), "Rosso");
        pc.com1.answer_to = [this](std::string_view sent) { return answers[std::string(sent)]; };
    }
}

TEST_F(ModemSession, LogOffRightBehindAnExchangeLeavesASecondOfSilenceBeforeTheEscape)
{
    LogIn_Click(window);
    const auto before = pc.clock.Passed();
    std::chrono::milliseconds first_escape{0};
    pc.com1.answer_to = [&](std::string_view sent) -> std::vector<testing::Arrival> {
        if (sent == "+" && first_escape == 0ms) first_escape = pc.clock.Passed() - before;
        return {};
    };
    LogOff_Click(window);
    EXPECT_GE(first_escape, 1400ms);
}

TEST_F(ModemSession, OrloAndSipaAreToldThatTheyConnectByThemselves)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        controls.ComboTipoTerminale->Show(QString::fromLatin1(model));
        LogIn_Click(window);
        EXPECT_EQ(Caption(), QStringLiteral("Errore: %1 si collega da sé a ogni comando.")
                                 .arg(QString::fromLatin1(model)));
        EXPECT_FALSE(pc.com1.PortOpen());
        EXPECT_EQ(Light(), "");
    }
}

TEST_F(ModemSession, NothingIsEndedWhenNoLineIsOpen)
{
    EndSession(window);
    EXPECT_EQ(pc.clock.Passed(), 0ms);
    EXPECT_EQ(Light(), "");
}

}  // namespace
}  // namespace orlo
