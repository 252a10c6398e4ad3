#include "tests/end_to_end/exported_table.h"
#include "tests/end_to_end/opened_window.h"

#include <QLineEdit>
#include <QListWidget>

namespace orlo::end_to_end
{
namespace
{

class BellsOnALine : public OpenedWindow
{
protected:
    void OpenBells(const char* name) { Open(Controls().cmdSuonerie, name); }
    void Type(QAnyStringView name, const QString& text)
    {
        auto& field = Find<QLineEdit>(name);
        field.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Tab);
    }
    QString Text(QAnyStringView name) const
    {
        return Find<QWidget>(name).property("text").toString();
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
    Start("");
    OpenBells("FrmSuonerie");
    Press("Giorno_0");
    EnterRing(0, "1200", 4);
    EnterRing(2, "8:30", 2);
    Press("Giorno_6");
    for (int ring = 0; ring < kRingsOfDay; ++ring)
        EnterRing(ring, qPrintable(QStringLiteral("%1:59").arg(23 - ring)), ring % 11);
    Press("cmdTrasmetteSuonerie");
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Spedizione dati OK"));
    EXPECT_EQ(line->State("7.suoneria_0_01"), "08:30 2");
    EXPECT_EQ(line->State("7.suoneria_0_02"), "12:00 4");
    EXPECT_EQ(line->State("7.suoneria_6_01"), "00:59 1");
    EXPECT_EQ(line->State("7.suoneria_6_23"), "22:59 1");
    const RingTable sent = desk->State().RingTable;
    EndProgram();

    StartProgram();
    EXPECT_FALSE(desk->State().RingTable == sent);
    OpenBells("FrmSuonerie");
    Press("cmdRiceveSuonerie");
    EXPECT_EQ(dialog.told.back().text, QStringLiteral("Ricezione dati OK"));
    EXPECT_TRUE(desk->State().RingTable == sent);
    Press("Giorno_0");
    EXPECT_EQ(Text("Ring_0"), QStringLiteral("08:30"));
    EXPECT_EQ(Text("TempoRings_1"), QStringLiteral("4"));
}

TEST_P(ObjectBells, AWindowThatIsClosedBehindACommandHoldsNothingBack)
{
    Start("");
    OpenBells("FrmSuonerie");
    Press("cmdRiceveSuonerie");
    ASSERT_EQ(Text("Esito"), QStringLiteral("Comunicazione OK"));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    Controls().cmdTest->click();
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(QStringLiteral("Comunicazione OK")));
}

TEST_P(ObjectBells, ARefusedTransferIsRepeated)
{
    Start("", {"--guasto", "3:esito=ER"});
    OpenBells("FrmSuonerie");
    Press("cmdRiceveSuonerie");
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Ricezione dati OK"));
    EXPECT_EQ(Controls().PannelloTentativi->text(), QStringLiteral("Tentativi2/3"));
}

TEST_P(ObjectBells, ATerminalThatRefusesThreeTimesEndsTheSending)
{
    Start("", {"--guasto", "2:esito=ER", "--guasto", "3:esito=ER", "--guasto", "4:esito=ER"});
    OpenBells("FrmSuonerie");
    Press("cmdTrasmetteSuonerie");
    ASSERT_EQ(dialog.told.size(), 1U);
    EXPECT_EQ(dialog.told[0].text, QStringLiteral("Errore nella spedizione dei dati"));
    EXPECT_EQ(Controls().PannelloTentativi->text(), QStringLiteral("Tentativi3/3"));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ObjectBells, ::testing::ValuesIn(ModelsOnLine(/*serial=*/false)),
                         [](const auto& model) { return model.param.test_name; });

class SerialBells : public BellsOnALine
{
protected:
    void Store(int line_of_list, const char* time, int duration, const char* relay,
               std::initializer_list<const char*> days)
    {
        Find<QListWidget>("ListaSuonerie").setCurrentRow(line_of_list);
        Type("Ring", QString::fromLatin1(time));
        Type("TempoRings", QString::number(duration));
        Press(relay);
        for (const char* day : days) Press(day);
        Press("cmdAggiorna");
    }
};

TEST_P(SerialBells, RingsAreStoredSentAndThereAtTheNextStart)
{
    Start("");
    OpenBells("frmRingOrloII");
    Store(0, "8:30", 5, "RelèA", {"Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi"});
    Store(31, "2359", 99, "RelèB", {"Domenica", "Festivo"});
    Press("cmdTrasmette");
    EXPECT_EQ(Text("PannelloSuonerie"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->State("7.suoneria_01"), "08:30 01111100 1 5");
    EXPECT_EQ(line->State("7.suoneria_32"), "23:59 10000001 2 99");
    EXPECT_TRUE(dialog.told.empty());
    const Lines rows = Exported(installation, "Suonerie");
    ASSERT_GE(rows.size(), 2U);
    EXPECT_EQ(rows[rows.size() - 2], "7,1,8,30,\"01111100\",1,5");
    EXPECT_EQ(rows.back(), "7,32,23,59,\"10000001\",2,99");
    EndProgram();

    StartProgram();
    OpenBells("frmRingOrloII");
    EXPECT_EQ(Find<QListWidget>("ListaSuonerie").item(1)->text().toStdString(),
              "32   23:59     99     1 0 0 0 0 0 0 1    0 1");
    dialog.answer_yes = true;
    Press("cmdReset");
    EXPECT_EQ(Text("PannelloSuonerie"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->Commands("14"), "14CLEAR");
    EXPECT_EQ(Exported(installation, "Suonerie"), rows);
}

TEST_P(SerialBells, SendingStopsAtTheRingThatIsNotAnswered)
{
    Start("", {"--guasto", "13#2:silenzio"});
    OpenBells("frmRingOrloII");
    for (const int line_of_list : {0, 1, 2}) Store(line_of_list, "8:30", 5, "RelèA", {"Lunedi"});
    Press("cmdTrasmette");
    EXPECT_EQ(Text("PannelloSuonerie"), QStringLiteral("Timeout"));
    EXPECT_EQ(line->State("7.suoneria_02"), "08:30 01000000 1 5") << "its answer was lost";
    EXPECT_EQ(line->State("7.suoneria_03"), "");
    Press("cmdTrasmette");
    EXPECT_EQ(Text("PannelloSuonerie"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->State("7.suoneria_03"), "08:30 01000000 1 5");
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, SerialBells, ::testing::ValuesIn(ModelsOnLine(/*serial=*/true)),
                         [](const auto& model) { return model.param.test_name; });

}  // namespace
}  // namespace orlo::end_to_end
