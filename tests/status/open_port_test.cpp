// The port that a link test without an answer leaves open, and what comes next.

#include "acquisition/acquisizione.h"
#include "badge/formato_badge.h"
#include "registry/modem_session.h"
#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "status/test.h"
#include "tests/support/object_window.h"

#include <QTemporaryDir>

namespace orlo::testing
{
namespace
{

struct Command {
    const char* name;
    std::function<void(Contenitore&)> run;
};

const Command kCommands[] = {
    {"test", cmdTest_Click},
    {"read clock", cmdLeggeOra_Click},
    {"set clock", [](Contenitore& window) { cmdSincro_Click(window); }},
    {"read badge", [](Contenitore& window) { cmdRiceveCard_Click(window, [] {}); }},
    {"send badge", cmdTrasmetteCard_Click},
    {"acquire", [](Contenitore& window) { cmdAcquisisce_Click(window); }},
    {"log-in and log-off",
     [](Contenitore& window) {
         LogIn_Click(window);
         LogOff_Click(window);
     }},
    {"log-off", LogOff_Click},
};

const Command kPeriodicRead = {"periodic read", Timer1_Timer};

class OpenPort : public ObjectWindow
{
protected:
    const QTemporaryDir folder;

    /// Leaves COM1 open behind a test of terminal 4, whose next request is answered again.
    void TestASilentTerminal()
    {
        ConnectedWindow::Connect(QStringLiteral("Strale"), {}, {"1:silenzio"});
        Controls().NomeFile->setText(folder.filePath(QStringLiteral("punches")));
        EnterABadgeLayout();
        cmdTest_Click(window);
        ASSERT_EQ(Outcome(), QStringLiteral("Timeout"));
        ASSERT_TRUE(pc.com1.PortOpen());
    }
    /// Another terminal, on COM2, where nobody answers.
    void SelectOneOnAnotherPort()
    {
        Register(5, QStringLiteral("Lumo"));
        state.TerminalTable.at(4).Porta = 2;
        window.SelectTerminalLine(1);
        EnterABadgeLayout();
    }
    void EnterABadgeLayout()
    {
        const Ui::Contenitore& controls = Controls();
        for (QLineEdit* field : {controls.InizioImpianto, controls.LenImpianto,
                                 controls.InizioBadge, controls.LenBadge, controls.NomeCard})
            field->setText(QStringLiteral("5"));
    }
};

TEST_F(OpenPort, IsClosedByTheNextOperationWhateverItIs)
{
    std::vector<Command> next(std::begin(kCommands), std::end(kCommands));
    next.push_back(kPeriodicRead);
    for (const Command& command : next) {
        TestASilentTerminal();
        command.run(window);
        EXPECT_FALSE(pc.com1.PortOpen()) << command.name;
    }
}

TEST_F(OpenPort, HindersNoCommandBehindIt)
{
    for (const Command& command : kCommands) {
        TestASilentTerminal();
        command.run(window);
        EXPECT_NE(Outcome(), QStringLiteral("Errore aprendo la COM")) << command.name;
        EXPECT_NE(Outcome(), QStringLiteral("Timeout")) << command.name;
    }
}

TEST_F(OpenPort, IsClosedByACommandForATerminalOnAnotherPort)
{
    for (const Command& command : kCommands) {
        TestASilentTerminal();
        SelectOneOnAnotherPort();
        command.run(window);
        EXPECT_FALSE(pc.com1.PortOpen()) << command.name;
    }
}

TEST_F(OpenPort, IsClosedAlsoWhenTheOtherPortDoesNotOpen)
{
    TestASilentTerminal();
    SelectOneOnAnotherPort();
    pc.com2.device_missing = true;
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(OpenPort, StaysOpenWhileATerminalIsOnlySelected)
{
    TestASilentTerminal();
    SelectOneOnAnotherPort();
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(OpenPort, IsClosedBeforeTheComponentOpensItItself)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        TestASilentTerminal();
        bool open_by_then = true;
        terminal.component.on_call = [&](const std::string& call) {
            if (call == "OpenComunication(1, 38400)") open_by_then = pc.com1.PortOpen();
        };
        Connect(model);
        cmdLeggeOra_Click(window);
        EXPECT_FALSE(open_by_then) << model;
    }
}

TEST_F(OpenPort, OfAModemIsHungUpAtOnceAndClosedByLogOff)
{
    ConnectedWindow::Connect(QStringLiteral("Strale"), {}, {"*:silenzio"});
    Controls().CheckModem->setChecked(true);
    cmdTest_Click(window);
    EXPECT_TRUE(pc.com1.PortOpen());
    pc.com1.sent.clear();
    LogOff_Click(window);
    EXPECT_EQ(pc.com1.sent, (std::vector<std::string>{"+", "+", "+", "ATH\r"}));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(OpenPort, OfAnOpenLineIsNeitherOpenedNorClosedByACommand)
{
    for (const Command& command : std::span(kCommands).first(6)) {
        ConnectedWindow::Connect(QStringLiteral("Strale"));
        Controls().NomeFile->setText(folder.filePath(QStringLiteral("punches")));
        EnterABadgeLayout();
        LogIn_Click(window);
        const int opened = pc.com1.times_opened;
        command.run(window);
        EXPECT_FALSE(commands.isEmpty()) << command.name;
        EXPECT_TRUE(pc.com1.PortOpen()) << command.name;
        EXPECT_EQ(pc.com1.times_opened, opened) << command.name;
        LogOff_Click(window);
        commands.clear();
    }
}

}  // namespace
}  // namespace orlo::testing
