#include "registry/modem_session.h"
#include "tests/acquisition/acquisition_fixture.h"
#include "tests/acquisition/modem_line.h"

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

/// The terminal of the fixture behind a simulated modem, all in simulated time.
class ModemAcquisition : public testing::AcquisitionTest
{
protected:
    testing::ModemLine modem{pc};

    void ConnectByModem(const char* model, const std::vector<std::string>& faults = {})
    {
        Connect(model, "timbrature=25,seme=3", faults);
        window.Controls().CheckModem->setChecked(true);
        window.Controls().NumeroTelefono->setText(QStringLiteral("0123"));
        modem.PutBefore(*line);
    }
    /// The operator takes a second to press the button: the silence before the escape.
    void LogOff()
    {
        pc.clock.Advance(1s);
        LogOff_Click(window);
        modem.PortClosed();
    }
    QByteArray Light() const { return window.LineIsOpen() ? "Verde" : "not Verde"; }
};

TEST_F(ModemAcquisition, EveryModelIsAcquiredOverTheOpenLine)
{
    for (const char* model : {"Orlo II", "OrloTre", "SuperStrale", "Strale N", "Lumo", "Strale"}) {
        SCOPED_TRACE(model);
        QFile::remove(window.Controls().NomeFile->text());
        ConnectByModem(model);
        window.Controls().ComboTipoTerminale->Show(QLatin1String(model));
        LogIn_Click(window);
        ASSERT_EQ(Light(), "Verde") << Outcome().toStdString();
        EXPECT_TRUE(Acquire().done);
        LogOff();
        EXPECT_EQ(PunchLines().size(), 25);
        EXPECT_EQ(Punches().ToAcquire(), 0U);
        EXPECT_EQ(modem.commands.filter(QStringLiteral("ATH")).size(), 1);
        modem.commands.clear();
    }
}

struct LossCase {
    const char* name;
    const char* fault;
    /// Punches in the file when the line was lost, and those that the terminal still counts then.
    qsizetype written;
    std::size_t left;
};

class LostCall : public ModemAcquisition, public ::testing::WithParamInterface<LossCase>
{
protected:
    QByteArray AcquireUndisturbed()
    {
        ConnectByModem("Strale");
        LogIn_Click(window);
        EXPECT_TRUE(Acquire().done);
        LogOff();
        const QByteArray file = PunchFile();
        QFile::remove(window.Controls().NomeFile->text());
        return file;
    }
    void AcquireUntilTheLoss()
    {
        ConnectByModem("Strale", {GetParam().fault});
        LogIn_Click(window);
        EXPECT_FALSE(Acquire().done);
        EXPECT_EQ(PunchFile().count('\n'), GetParam().written);
        EXPECT_EQ(Punches().ToAcquire(), GetParam().left);
        EXPECT_EQ(Light(), "Verde") << "the session is the operator's to end";
        LogOff();
    }
};

TEST_P(LostCall, RedialAcquiresWhatTheTerminalStillHas)
{
    const QByteArray undisturbed = AcquireUndisturbed();
    AcquireUntilTheLoss();
    LogIn_Click(window);
    ASSERT_EQ(Light(), "Verde");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchFile(), undisturbed);
    EXPECT_EQ(Punches().ToAcquire(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Modem, LostCall,
    ::testing::Values(LossCase{"FirstStatus", "32#1:caduta", 0, 25},
                      LossCase{"StatusBehindTheFirstAnswer", "32#2:caduta", 10, 25},
                      LossCase{"StatusBehindTheSecondAnswer", "32#3:caduta", 20, 15}),
    [](const auto& loss) { return loss.param.name; });

// The first request of an acquisition is "33OK", also after a redial, and the terminal takes it for
// the acknowledgement of the torn answer: its ten punches are then only in the terminal's memory,
// already counted as acquired. So it is on a cable too.
TEST_F(ModemAcquisition, TornAnswerIsAcknowledgedByTheAcquisitionAfterTheRedial)
{
    ConnectByModem("Strale", {"33#2:caduta"});
    LogIn_Click(window);
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 10);
    EXPECT_EQ(Punches().ToAcquire(), 15U);
    LogOff();
    LogIn_Click(window);
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 15);
}

}  // namespace
}  // namespace orlo
