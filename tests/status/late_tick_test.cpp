// The answer to a reading of the clock that nobody asked for, when it comes after the reading was
// given up, and the command that was pressed meanwhile.

#include "badge/formato_badge.h"
#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "status/test.h"
#include "tests/support/connected_window.h"

namespace orlo::testing
{
namespace
{

class LateTick : public ConnectedWindow
{
protected:
    /// A reading that is given up; the terminal answers it so many milliseconds after its request.
    void Tick(int milliseconds, const std::vector<std::string>& faults_behind = {})
    {
        std::vector<std::string> faults = {"1:ritardo=" + std::to_string(milliseconds)};
        faults.insert(faults.end(), faults_behind.begin(), faults_behind.end());
        Connect(QStringLiteral("Strale"), "badge=1/5/7/6/00123", faults);
        ASSERT_TRUE(window.PrepareCurrentTerminal());
        pc.workstation.unasked = true;
        Timer1_Timer(window);
        pc.workstation.unasked = false;
        ASSERT_EQ(Outcome(), QStringLiteral("Timeout"));
    }
    QStringList Layout() const
    {
        const Ui::Contenitore& controls = Controls();
        return {controls.InizioImpianto->text(), controls.LenImpianto->text(),
                controls.InizioBadge->text(), controls.LenBadge->text(), controls.NomeCard->text()};
    }
};

TEST_F(LateTick, AnswerIsNotTakenForABadgeField)
{
    for (const int late : {2400, 2500, 2700, 3300, 3600, 5200}) {
        Tick(late);
        cmdRiceveCard_Click(window, [] {});
        EXPECT_EQ(Layout(), QStringLiteral("1 5 7 6 123").split(u' ')) << late;
    }
}

TEST_F(LateTick, AnswerOfATerminalThatFellSilentIsNoAnswerToTheCommandBehindIt)
{
    const std::vector<std::string> silent = {"2:silenzio", "3:silenzio"};
    Tick(2600, silent);
    EXPECT_FALSE(cmdSincro_Click(window).done);
    Tick(2600, silent);
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Controls().OraTerminale->text(), QString());
    Tick(2600, silent);
    EXPECT_FALSE(orlo::Test(window));
}

TEST_F(LateTick, CommandThatComesLaterIsNotKeptWaiting)
{
    Tick(2600);
    pc.clock.Advance(std::chrono::seconds{3});
    const auto before = pc.clock.Passed();
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_LT(pc.clock.Passed() - before, std::chrono::seconds{1});
}

}  // namespace
}  // namespace orlo::testing
