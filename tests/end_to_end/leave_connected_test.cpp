// The operator leaves the window while a line is up. Dialling takes some twenty seconds of real
// time, hanging up ten.

#include "registry/contenitore_controls.h"
#include "tests/end_to_end/desk_on_a_line.h"
#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

/// The program's own window over a simulated modem with terminal 5, a Strale, behind it. It ends as
/// the program does: the register first, then the line.
class LeavingConnected : public ::testing::Test
{
protected:
    const Installation installation;
    std::unique_ptr<SimulatedLine> line;
    orlo::testing::FakeDialog dialog;
    NoTrace trace;
    std::unique_ptr<Desk> desk;
    bool left = false;
    bool locked_while_hanging_up = true;

    ~LeavingConnected() override
    {
        if (desk) CloseRegister(desk->State());
    }

    void SetUp() override
    {
        installation.Register({{.terminal = 5, .modem = true}});
        line = installation.Simulate(
            {"--terminale", "numero=5,modello=Strale", "--modem", "attesa=300"});
        desk = DeskOnALine(installation, 5, dialog, trace);
        QObject::connect(&Window(), &Contenitore::LeaveRequested, &Window(), [this] { Leave(); });
        Window().show();
        Controls().cmdLogIn->click();
        ASSERT_FALSE(Controls().Verde->isHidden())
            << Controls().PannelloComunicazione->text().toStdString();
    }

    Contenitore& Window() { return desk->Window(); }
    const Ui::Contenitore& Controls() { return Window().Controls(); }
    SerialPortControl& Port() { return *Window().Station().Comm(1); }

private:
    void Leave()
    {
        CloseRegister(desk->State());
        locked_while_hanging_up = installation.Has("nimbo.ldb");
        desk->HangUp();
        left = true;
    }
};

TEST_F(LeavingConnected, HangsUpAndThenEnds)
{
    Controls().cmdUscita->click();
    EXPECT_TRUE(left);
    EXPECT_EQ(line->Commands("+++"), "+++") << "taken in the data mode: a command of its own";
    EXPECT_EQ(line->Commands("ATH"), "ATH");
    EXPECT_FALSE(locked_while_hanging_up);
    EXPECT_FALSE(Port().PortOpen());
    EXPECT_TRUE(Controls().Verde->isHidden());
    EXPECT_FALSE(Controls().Rosso->isHidden());
    EXPECT_TRUE(dialog.told.empty());
}

TEST_F(LeavingConnected, EndsThoughThereIsNoModemLeftToHangUp)
{
    line.reset();
    Window().close();
    EXPECT_TRUE(left);
    EXPECT_FALSE(locked_while_hanging_up);
    EXPECT_FALSE(Port().PortOpen());
    EXPECT_TRUE(Controls().Verde->isHidden());
    EXPECT_TRUE(dialog.told.empty());
}

}  // namespace
}  // namespace orlo::end_to_end
