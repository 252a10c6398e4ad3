#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "tests/support/connected_window.h"

namespace orlo::testing
{
namespace
{

class ClockTest : public ConnectedWindow
{
protected:
    QString Time() const { return Controls().OraTerminale->text(); }
    QString Date() const { return Controls().DataTerminale->text(); }
    QString Pc() const { return Controls().Sistema->text(); }
    QString Difference() const { return Controls().LabelScarto->text(); }
    /// Everything that a reading shows.
    QStringList Shown() const { return {Time(), Date(), Pc(), Difference(), Outcome()}; }
    long Offset() const { return static_cast<long>(Terminal().Clock().Offset().count()); }
};

const QString kSerialModels[] = {QStringLiteral("Orlo II"),  QStringLiteral("Strale"),
                                 QStringLiteral("Strale N"), QStringLiteral("Lumo"),
                                 QStringLiteral("OrloTre"),  QStringLiteral("SuperStrale")};

TEST_F(ClockTest, EachModelsClockIsShownBesideThePcs)
{
    for (const QString& model : kSerialModels) {
        Connect(model, "scarto=3");
        cmdLeggeOra_Click(window);
        const bool weekday =
            model != QStringLiteral("OrloTre") && model != QStringLiteral("SuperStrale");
        QStringList shown = {QStringLiteral("08:00:03"), QStringLiteral("Gio 05/03/26"),
                             QStringLiteral("05/03/2026 - 08:00:00"), QStringLiteral("+3 s"),
                             QStringLiteral("Comunicazione OK")};
        if (!weekday) shown[0] = QStringLiteral(" 08:00:03");
        if (!weekday) shown[1] = QStringLiteral("05/03/26");
        EXPECT_EQ(Shown(), shown) << model.toStdString();
        EXPECT_FALSE(pc.com1.PortOpen());
    }
}

TEST_F(ClockTest, SettingSendsThePcsClockAndNothingElse)
{
    for (const QString& model : kSerialModels) {
        Connect(model, "scarto=-95");
        EXPECT_TRUE(cmdSincro_Click(window).done);
        EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
        EXPECT_EQ(commands, QStringList{QStringLiteral("012603050800004")}) << model.toStdString();
    }
}

TEST_F(ClockTest, SettingMakesTheClocksEqual)
{
    Connect(QStringLiteral("OrloTre"), "scarto=-95");
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Offset(), -95);
    EXPECT_EQ(Difference(), QStringLiteral("−1 min 35 s"));
    cmdSincro_Click(window);
    EXPECT_EQ(Offset(), 0);
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Difference(), QStringLiteral("0 s"));
}

TEST_F(ClockTest, SettingPutsTheCommandIntoAFrame)
{
    pc.clock.SetDate({2006, 3, 5});
    pc.clock.SetTimeOfDay(QTime(14, 7, 9));
    Connect(QStringLiteral("Strale"));
    cmdSincro_Click(window);
    // 2 + 132 + 756 for the fifteen digits, less 6 times 128: 122.
    EXPECT_EQ(pc.com1.sent, std::vector<std::string>{"\x02\x84"
                                                     "010603051407090\xFA\r"});
}

TEST_F(ClockTest, TimeOutLeavesTheDisplaysAndClosesThePort)
{
    Connect(QStringLiteral("Strale"), {}, {"2:silenzio", "3:silenzio"});
    cmdLeggeOra_Click(window);
    pc.clock.Advance(std::chrono::seconds(5));
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Time(), QStringLiteral("08:00:00"));
    EXPECT_EQ(Pc(), QStringLiteral("05/03/2026 - 08:00:00"));
    EXPECT_FALSE(pc.com1.PortOpen());
    const ClockOutcome setting = cmdSincro_Click(window);
    EXPECT_FALSE(setting.done);
    EXPECT_EQ(setting.reason, QStringLiteral("Timeout"));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(ClockTest, BadFrameIsShownSlicedLikeAnAnswer)
{
    for (const QString& model : kSerialModels) {
        Connect(model, {}, {"*:checksum-errato"});
        pc.clock.SetTimeOfDay(QTime(8, 0));
        cmdLeggeOra_Click(window);
        EXPECT_EQ(Shown(), (QStringList{QStringLiteral("RX ERROR"), QString(),
                                        QStringLiteral("05/03/2026 - 08:00:01"), QString(),
                                        QStringLiteral("Comunicazione OK")}))
            << model.toStdString() << ", behind a second of silence";
    }
}

TEST_F(ClockTest, SettingWithABadFrameIsShownAsGoodButNotReportedAsDone)
{
    Connect(QStringLiteral("Lumo"), {}, {"01*:checksum-errato"});
    const ClockOutcome setting = cmdSincro_Click(window);
    EXPECT_FALSE(setting.done);
    EXPECT_FALSE(setting.reason.isEmpty());
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ClockTest, PortThatDoesNotOpenIsTheOutcomeAndNothingIsSent)
{
    Connect(QStringLiteral("Strale"));
    pc.com1.device_missing = true;
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM"));
    const ClockOutcome setting = cmdSincro_Click(window);
    EXPECT_FALSE(setting.done);
    EXPECT_EQ(setting.reason, QStringLiteral("Errore aprendo la COM"));
    EXPECT_TRUE(pc.com1.sent.empty());
    EXPECT_EQ(Pc(), QString());
}

TEST_F(ClockTest, ShortAnswerFillsTheDisplaysWithWhatIsThere)
{
    Connect(QStringLiteral("Strale"));
    pc.com1.answer_to = [](std::string_view) {
        // SOH, address, "12:34", its checksum, CR.
        return std::vector<Arrival>{{{},
                                     "\x01\x84"
                                     "12:34\x89\r"}};
    };
    cmdLeggeOra_Click(window);
    EXPECT_EQ(Time(), QStringLiteral("12:34"));
    EXPECT_EQ(Date(), QString());
}

TEST_F(ClockTest, DisplaysSayWhichTerminalTheyShow)
{
    Connect(QStringLiteral("Strale"));
    Register(5, QStringLiteral("Lumo"));
    const QLabel& caption = *Controls().LabelOrologio;
    EXPECT_EQ(caption.text(), QStringLiteral("Terminale:"));
    cmdLeggeOra_Click(window);
    EXPECT_EQ(caption.text(), QStringLiteral("Terminale 4:"));
    EXPECT_FALSE(caption.font().bold());
    window.SelectTerminalLine(1);
    EXPECT_EQ(caption.text(), QStringLiteral("Terminale:"));
    EXPECT_EQ(Time(), QString());
}

TEST_F(ClockTest, PreparingAnotherTerminalEmptiesTheDisplays)
{
    Connect(QStringLiteral("Strale"));
    Register(5, QStringLiteral("Lumo"));
    cmdLeggeOra_Click(window);
    window.SelectTerminalLine(1);
    // The periodic read of the one before.
    Timer1_Timer(window);
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale 4:"));
    EXPECT_TRUE(Controls().LabelOrologio->font().bold());
    EXPECT_FALSE(Controls().LabelOrologio->toolTip().isEmpty());
    window.PrepareCurrentTerminal();
    EXPECT_EQ(Time(), QString());
    EXPECT_EQ(Controls().LabelOrologio->text(), QStringLiteral("Terminale:"));
}

}  // namespace
}  // namespace orlo::testing
