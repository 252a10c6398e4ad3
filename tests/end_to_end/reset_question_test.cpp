// The program's own window with its own message boxes, which a signal takes away.

#include "app/message_boxes.h"
#include "app/termination.h"
#include "registry/contenitore_controls.h"
#include "tests/end_to_end/desk_on_a_line.h"
#include "tests/support/window_controls.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace orlo::end_to_end
{
namespace
{

/// The bell window of terminal 7, an Orlo II on a simulated line.
class ResetQuestion : public ::testing::TestWithParam<int>
{
protected:
    const Installation installation;
    std::unique_ptr<SimulatedLine> line;
    Termination termination;
    MessageBoxes dialog{termination};
    NoTrace trace;
    std::unique_ptr<Desk> desk;
    bool left = false;
    QString question;

    ~ResetQuestion() override
    {
        if (desk) CloseRegister(desk->State());
    }

    void SetUp() override
    {
        installation.Register({{.terminal = 7, .type = 3}});
        line = installation.Simulate({"--terminale", "numero=7,modello=Orlo II"});
        desk = DeskOnALine(installation, 7, dialog, trace);
        dialog.SetParentWindow(&Window());
        QObject::connect(&termination, &Termination::Asked, &Window(),
                         [this] { Window().close(); });
        QObject::connect(&Window(), &Contenitore::LeaveRequested, &Window(),
                         [this] { left = true; });
        Window().show();
        Window().Controls().cmdSuonerie->click();
    }

    Contenitore& Window() { return desk->Window(); }
    /// Presses the reset and sends the signal to the process as soon as the question stands.
    void ResetAndEnd()
    {
        auto* const bells = Window().findChild<QDialog*>(QStringLiteral("frmRingOrloII"));
        ASSERT_NE(bells, nullptr);
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [this, &look] {
            const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            look.stop();
            question = box->text();
            std::raise(GetParam());
        });
        look.start(10);
        orlo::testing::ControlOf<QPushButton>(*bells, "cmdReset").click();
    }
};

TEST_P(ResetQuestion, ASignalLeavesTheRingsInTheTerminal)
{
    ResetAndEnd();
    EXPECT_EQ(question, QStringLiteral("Si desidera azzerare le suonerie?"));
    EXPECT_EQ(line->Commands("14"), "");
    EXPECT_TRUE(left);
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ResetQuestion, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace
}  // namespace orlo::end_to_end
