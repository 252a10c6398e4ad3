#include "app/desk.h"
#include "registry/contenitore_controls.h"
#include "registry/start_up.h"
#include "registry/terminal_lines.h"
#include "tests/end_to_end/exported_table.h"
#include "tests/end_to_end/installation.h"
#include "tests/support/test_workstation.h"

#include <QDialog>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

struct Model {
    const char* name;
    int type;
};

void PrintTo(const Model& model, std::ostream* out)
{
    *out << model.name;
}

std::string TestName(const ::testing::TestParamInfo<Model>& model)
{
    std::string name = model.param.name;
    std::erase(name, ' ');
    return name;
}

/// The program with terminal 7 on a simulated line, started, left and started again.
class BellsOnALine : public ::testing::TestWithParam<Model>
{
protected:
    const Installation installation;
    std::unique_ptr<SimulatedLine> line;
    orlo::testing::FakeDialog dialog;
    NoTrace trace;
    std::unique_ptr<Desk> desk;
    QDialog* bells = nullptr;

    ~BellsOnALine() override { End(); }

    /// The simulated terminal, with these faults, and the program.
    void SetOut(const std::vector<std::string>& faults = {})
    {
        std::vector<std::string> arguments = {"--terminale",
                                              std::string("numero=7,modello=") + GetParam().name};
        for (const std::string& fault : faults)
            arguments.insert(arguments.end(), {"--guasto", fault});
        line = installation.Simulate(arguments);
        installation.Register({{.terminal = 7, .type = GetParam().type}});
        Start();
    }
    void Start()
    {
        CommandLine command_line;
        command_line.configuration_file = Path("Configurazione.ini");
        command_line.devices[0] = Path("com1");
        command_line.component_file = QStringLiteral(ORLO_COMPONENT_PATH);
        desk = std::make_unique<Desk>(command_line, dialog, trace);
        const StartUpOutcome start_up =
            StartUp(desk->Window(), command_line.configuration_file, desk->Component());
        ASSERT_EQ(start_up.end, StartUpOutcome::End::Complete) << start_up.reason.toStdString();
        ASSERT_TRUE(SelectTerminal(desk->Window(), 7));
        desk->Window().show();
    }
    void End()
    {
        if (desk) CloseRegister(desk->State());
        desk.reset();
    }
    QString Path(const char* name) const
    {
        return QString::fromStdString(installation.PathOf(name));
    }

    void OpenBells(const char* name)
    {
        desk->Window().Controls().cmdSuonerie->click();
        bells = desk->Window().findChild<QDialog*>(QLatin1String(name));
        ASSERT_NE(bells, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(bells));
    }
    void Press(const QString& button) { bells->findChild<QAbstractButton*>(button)->click(); }
    void Type(const QString& name, const QString& text)
    {
        auto* const field = bells->findChild<QLineEdit*>(name);
        field->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Tab);
    }
    QString Text(const QString& name)
    {
        return bells->findChild<QWidget*>(name)->property("text").toString();
    }
};

class ObjectBells : public BellsOnALine
{
protected:
    void EnterRing(int ring, const char* time, int duration)
    {
        Type(QStringLiteral("Ring_%1").arg(ring), QString::fromLatin1(time));
        Type(QStringLiteral("TempoRings_%1").arg(ring), QString::number(duration));
    }
};

TEST_P(ObjectBells, AWeekSentIsReadBackEqualByAnotherStartOfTheProgram)
{
    SetOut();
    OpenBells("FrmSuonerie");
    Press(QStringLiteral("Giorno_0"));
    EnterRing(0, "1200", 4);
    EnterRing(2, "8:30", 2);
    Press(QStringLiteral("Giorno_6"));
    for (int ring = 0; ring < kRingsOfDay; ++ring)
        EnterRing(ring, qPrintable(QStringLiteral("%1:59").arg(23 - ring)), ring % 11);
    Press(QStringLiteral("cmdTrasmetteSuonerie"));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Spedizione dati OK"));
    EXPECT_EQ(line->State("7.suoneria_0_01"), "08:30 2");
    EXPECT_EQ(line->State("7.suoneria_0_02"), "12:00 4");
    EXPECT_EQ(line->State("7.suoneria_6_01"), "00:59 1");
    EXPECT_EQ(line->State("7.suoneria_6_23"), "22:59 1");
    const RingTable sent = desk->State().RingTable;
    End();

    Start();
    EXPECT_FALSE(desk->State().RingTable == sent);
    OpenBells("FrmSuonerie");
    Press(QStringLiteral("cmdRiceveSuonerie"));
    EXPECT_EQ(dialog.told.back().text, QStringLiteral("Ricezione dati OK"));
    EXPECT_TRUE(desk->State().RingTable == sent);
    Press(QStringLiteral("Giorno_0"));
    EXPECT_EQ(Text(QStringLiteral("Ring_0")), QStringLiteral("08:30"));
    EXPECT_EQ(Text(QStringLiteral("TempoRings_1")), QStringLiteral("4"));
}

TEST_P(ObjectBells, AWindowThatIsClosedHoldsNothingBack)
{
    SetOut();
    OpenBells("FrmSuonerie");
    QTest::keyClick(bells, Qt::Key_Escape);
    EXPECT_FALSE(bells->isVisible());
    desk->Window().Controls().cmdTest->click();
    EXPECT_TRUE(desk->Window().Controls().LabelUltimoComando->text().endsWith(
        QStringLiteral("Comunicazione OK")));
}

TEST_P(ObjectBells, ARefusedTransferIsRepeated)
{
    SetOut({"3:esito=ER"});
    OpenBells("FrmSuonerie");
    Press(QStringLiteral("cmdRiceveSuonerie"));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Ricezione dati OK"));
    EXPECT_EQ(Text(QStringLiteral("LabelTentativi")), QStringLiteral("Tentativi2/3"));
}

TEST_P(ObjectBells, ATerminalThatRefusesThreeTimesEndsTheSending)
{
    SetOut({"2:esito=ER", "3:esito=ER", "4:esito=ER"});
    OpenBells("FrmSuonerie");
    Press(QStringLiteral("cmdTrasmetteSuonerie"));
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Errore nella spedizione dei dati"));
    EXPECT_EQ(Text(QStringLiteral("LabelTentativi")), QStringLiteral("Tentativi3/3"));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectBells,
                         ::testing::Values(Model{"Orlo", 1}, Model{"Sipa", 2}), TestName);

class SerialBells : public BellsOnALine
{
protected:
    void Store(int line_of_list, const char* time, int duration, const char* relay,
               std::initializer_list<const char*> days)
    {
        bells->findChild<QListWidget*>(QStringLiteral("ListaSuonerie"))
            ->setCurrentRow(line_of_list);
        Type(QStringLiteral("Ring"), QString::fromLatin1(time));
        Type(QStringLiteral("TempoRings"), QString::number(duration));
        Press(QString::fromUtf8(relay));
        for (const char* day : days) Press(QString::fromLatin1(day));
        Press(QStringLiteral("cmdAggiorna"));
    }
};

TEST_P(SerialBells, RingsAreStoredSentAndThereAtTheNextStart)
{
    SetOut();
    OpenBells("frmRingOrloII");
    Store(0, "8:30", 5, "RelèA", {"Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi"});
    Store(31, "2359", 99, "RelèB", {"Domenica", "Festivo"});
    Press(QStringLiteral("cmdTrasmette"));
    EXPECT_EQ(Text(QStringLiteral("PannelloSuonerie")), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->State("7.suoneria_01"), "08:30 01111100 1 5");
    EXPECT_EQ(line->State("7.suoneria_32"), "23:59 10000001 2 99");
    EXPECT_TRUE(dialog.told.empty());
    const Lines rows = Exported(installation, "Suonerie");
    ASSERT_GE(rows.size(), 2U);
    EXPECT_EQ(rows[rows.size() - 2], "7,1,8,30,\"01111100\",1,5");
    EXPECT_EQ(rows.back(), "7,32,23,59,\"10000001\",2,99");
    End();

    Start();
    OpenBells("frmRingOrloII");
    const auto* list = bells->findChild<QListWidget*>(QStringLiteral("ListaSuonerie"));
    EXPECT_EQ(list->item(1)->text().toStdString(), "32   23:59     99     1 0 0 0 0 0 0 1    0 1");
    dialog.answer_yes = true;
    Press(QStringLiteral("cmdReset"));
    EXPECT_EQ(Text(QStringLiteral("PannelloSuonerie")), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->Commands("14"), "14CLEAR");
    EXPECT_EQ(Exported(installation, "Suonerie"), rows);
}

TEST_P(SerialBells, SendingStopsAtTheRingThatIsNotAnswered)
{
    SetOut({"13#2:silenzio"});
    OpenBells("frmRingOrloII");
    for (const int line_of_list : {0, 1, 2}) Store(line_of_list, "8:30", 5, "RelèA", {"Lunedi"});
    Press(QStringLiteral("cmdTrasmette"));
    EXPECT_EQ(Text(QStringLiteral("PannelloSuonerie")), QStringLiteral("Timeout"));
    EXPECT_EQ(line->State("7.suoneria_02"), "08:30 01000000 1 5") << "its answer was lost";
    EXPECT_EQ(line->State("7.suoneria_03"), "");
    Press(QStringLiteral("cmdTrasmette"));
    EXPECT_EQ(Text(QStringLiteral("PannelloSuonerie")), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->State("7.suoneria_03"), "08:30 01000000 1 5");
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, SerialBells,
                         ::testing::Values(Model{"Orlo II", 3}, Model{"Strale", 4},
                                           Model{"Strale N", 5}, Model{"Lumo", 6},
                                           Model{"OrloTre", 7}, Model{"SuperStrale", 8}),
                         TestName);

}  // namespace
}  // namespace orlo::end_to_end
