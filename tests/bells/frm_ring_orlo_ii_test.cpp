#include "bells/ring_line.h"
#include "bells/ring_list.h"
#include "bells/week_drawing.h"
#include "jet/integrity_check.h"
#include "registry/widgets/outcome_panel.h"
#include "tests/bells/bell_window_fixture.h"
#include "tests/end_to_end/child_process.h"
#include "tests/jet/sample_files.h"
#include "tests/support/connected_window.h"

#include <QCheckBox>

namespace orlo::testing
{
namespace
{

using jet::test::ReadFile;
using jet::test::Sample;

const char kTerminal1[] =
    "1,1,8,0,\"01111100\",1,3\n"
    "1,2,12,0,\"10000011\",2,4\n"
    "1,3,13,30,\"01111100\",1,5\n"
    "1,4,17,30,\"10000011\",2,6\n"
    "1,5,18,0,\"01111100\",1,7\n"
    "1,6,6,5,\"10000011\",2,8\n";
const char kTerminal4[] =
    "4,1,8,5,\"01111110\",2,5\n"
    "4,2,12,5,\"01111110\",2,5\n"
    "4,3,13,35,\"01111110\",2,5\n"
    "4,4,17,35,\"01111110\",2,5\n";

/// Terminal 4, which has four rings in the full sample and none in the older one.
class FrmRingOrloII : public BellWindowTest<ConnectedWindow>
{
protected:
    const jet::test::ScratchFolder folder;
    std::filesystem::path file;

    void UseDatabase(const char* sample, jet::OpenMode mode = jet::OpenMode::ReadWrite)
    {
        state.Database.reset();
        file = folder.Write("nimbo.mdb", ReadFile(Sample(sample)));
        state.Database = jet::Database::Open(file, mode);
    }
    void Open(const char* model = "Orlo II", const std::vector<std::string>& faults = {})
    {
        if (state.Database == nullptr) UseDatabase("nimbo-full-2000.mdb");
        Connect(QString::fromLatin1(model), {}, faults);
        OpenBells("frmRingOrloII");
    }
    RingList& List() const { return Control<RingList>(QStringLiteral("ListaSuonerie")); }
    void ClickLine(int row)
    {
        List().scrollToItem(List().item(row));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualItemRect(List().item(row)).center());
    }
    std::string Line(int row) const { return List().item(row)->text().toStdString(); }
    std::string Days() const
    {
        std::string days;
        for (const char* day : {"Domenica", "Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi",
                                "Sabato", "Festivo"})
            days += Ticked(day) ? '1' : '0';
        return days;
    }
    std::string Status() const { return Text(QStringLiteral("PannelloSuonerie")); }
    std::string Exported() const
    {
        return end_to_end::ChildProcess(ORLO_MDB_EXPORT, {"-H", file.string(), "Suonerie"},
                                        {folder.Path().string(), {"LC_ALL=C.UTF-8"}, {}})
            .Wait()
            .output;
    }
};

TEST_F(FrmRingOrloII, ShowsTheRowsOfItsTerminalAndEmptyLinesBehindThem)
{
    Open();
    EXPECT_EQ(bells->windowTitle(), QStringLiteral("Suonerie Terminale n° 4"));
    EXPECT_EQ(Text(QStringLiteral("LabelTestata")),
              "Loc   Ora   Tempo  D .  .  .  .  .  .  F   1  2");
    ASSERT_EQ(List().count(), 32);
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
    EXPECT_EQ(Line(3), "04   17:35     05     0 1 1 1 1 1 1 0    0 1");
    EXPECT_EQ(Line(4), "05   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_EQ(Line(31), "32   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_TRUE(pc.com1.sent.empty());
}

TEST_F(FrmRingOrloII, MakesTheTableThatIsMissing)
{
    UseDatabase("nimbo-base-97.mdb");
    Open();
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_TRUE(LoadBellRows(*state.Database, 4).empty());
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(FrmRingOrloII, AClickedLineIsCopiedIntoTheControls)
{
    Open();
    ClickLine(2);
    EXPECT_EQ(Text(QStringLiteral("Ring")), "13:35");
    EXPECT_EQ(Text(QStringLiteral("TempoRings")), "05");
    EXPECT_EQ(Days(), "01111110");
    EXPECT_FALSE(Ticked("RelèA"));
    EXPECT_TRUE(Ticked("RelèB"));
    EXPECT_EQ(Text(QStringLiteral("LabelSuoneria")), "Suoneria 03");
    ClickLine(9);
    EXPECT_EQ(Text(QStringLiteral("Ring")), "00:00");
    EXPECT_EQ(Days(), "00000000");
    EXPECT_TRUE(Ticked("RelèA")) << "a new ring has a relay";
}

TEST_F(FrmRingOrloII, StoringChangesTheRowOfTheClickedLineAndTheLine)
{
    Open();
    ClickLine(1);
    Type(QStringLiteral("Ring"), "7:5");
    EXPECT_EQ(Text(QStringLiteral("Ring")), "07:05");
    Type(QStringLiteral("TempoRings"), "9");
    EXPECT_EQ(Text(QStringLiteral("TempoRings")), "09");
    Press("Festivo");
    Press("RelèA");
    EXPECT_EQ(Text(QStringLiteral("LabelModifiche")), "Modifiche non salvate");
    Press("cmdAggiorna");
    EXPECT_EQ(Line(1), "02   07:05     09     0 1 1 1 1 1 1 1    1 0");
    EXPECT_EQ(Text(QStringLiteral("LabelModifiche")), "");
    std::string expected = std::string(kTerminal1) + kTerminal4;
    const std::string old = "4,2,12,5,\"01111110\",2,5";
    expected.replace(expected.find(old), old.size(), "4,2,7,5,\"01111111\",1,9");
    EXPECT_EQ(Exported(), expected);
    EXPECT_EQ(jet::CheckIntegrity(file), std::vector<std::string>{});
}

TEST_F(FrmRingOrloII, StoringAddsTheRowThatTheClickedLineHasNone)
{
    Open();
    ClickLine(31);
    Type(QStringLiteral("Ring"), "23.59");
    Type(QStringLiteral("TempoRings"), "12");
    Press("Domenica");
    Press("cmdAggiorna");
    EXPECT_EQ(Exported(), std::string(kTerminal1) + kTerminal4 + "4,32,23,59,\"10000000\",1,12\n");
    Press("cmdUscita");
    OpenBells("frmRingOrloII");
    EXPECT_EQ(Line(4), "32   23:59     12     1 0 0 0 0 0 0 0    1 0") << "behind the rows before";
    EXPECT_EQ(Line(5), "05   00:00     00     0 0 0 0 0 0 0 0    0 0");
}

TEST_F(FrmRingOrloII, WhatCannotBeStoredIsToldAndTheLineStays)
{
    UseDatabase("nimbo-full-2000.mdb", jet::OpenMode::ReadOnly);
    Open();
    ClickLine(0);
    Press("Festivo");
    const std::string before = Line(0);
    Press("cmdAggiorna");
    EXPECT_EQ(Line(0), before);
    EXPECT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(Text(QStringLiteral("LabelModifiche")), "Modifiche non salvate");
}

TEST_F(FrmRingOrloII, AListThatCouldNotBeLoadedIsNotSent)
{
    UseDatabase("nimbo-base-2000.mdb", jet::OpenMode::ReadOnly);
    Open();
    EXPECT_EQ(pc.dialog.told.size(), 1U) << "the missing table cannot be made";
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_FALSE(Enabled("cmdTrasmette"));
    EXPECT_FALSE(Enabled("cmdAggiorna"));
    EXPECT_TRUE(Enabled("cmdReset"));
    EXPECT_EQ(Status(), "Errore: la tabella delle suonerie non si può leggere.");
}

TEST_F(FrmRingOrloII, EveryLineIsSentToTheFirstFourModels)
{
    for (const char* model : {"Orlo II", "Strale", "Strale N", "Lumo"}) {
        Controls().ListaTerminali->clear();
        commands.clear();
        const int opened = pc.com1.times_opened;
        Open(model);
        Press("cmdTrasmette");
        ASSERT_EQ(commands.size(), 32) << model;
        EXPECT_EQ(commands[0].toStdString(), "13 01 08 05 01111110 2 05");
        EXPECT_EQ(commands[3].toStdString(), "13 04 17 35 01111110 2 05");
        EXPECT_EQ(commands[4].toStdString(), "13 05 00 00 00000000 0 00");
        EXPECT_EQ(commands[31].toStdString(), "13 32 00 00 00000000 0 00");
        EXPECT_EQ(Terminal().Bells().Rings().size(), 4U);
        EXPECT_EQ(Status(), "Comunicazione OK");
        EXPECT_EQ(Outcome().toStdString(), "32/32 Comunicazione OK");
        EXPECT_EQ(pc.com1.times_opened - opened, 32) << "once for each telegram";
        EXPECT_FALSE(pc.com1.PortOpen());
        Press("cmdUscita");
    }
}

TEST_F(FrmRingOrloII, TelegramsAreSentByteForByte)
{
    Open();
    Press("cmdTrasmette");
    pc.dialog.answer_yes = true;
    Press("cmdReset");
    // STX, 128 + terminal, text, 128 + the 7-bit sum of all these, CR.
    EXPECT_EQ(pc.com1.sent.front(),
              "\x02\x84"
              "13 01 08 05 01111110 2 05\xF5\r");
    EXPECT_EQ(pc.com1.sent.back(),
              "\x02\x84"
              "14CLEAR\xD2\r");
    Press("cmdUscita");
    Controls().ListaTerminali->clear();
    pc.com1.sent.clear();
    Open("OrloTre");
    Press("cmdTrasmette");
    EXPECT_EQ(pc.com1.sent.front(),
              "\x02\x84"
              "1301 08 05 01111110 2 005\x85\r");
}

TEST_F(FrmRingOrloII, LinesOnNoDayAreNotSentToOrloTreAndSuperStrale)
{
    for (const char* model : {"OrloTre", "SuperStrale"}) {
        Controls().ListaTerminali->clear();
        commands.clear();
        Open(model);
        // A ring with a time and on no day.
        ClickLine(10);
        Type(QStringLiteral("Ring"), "1000");
        Press("cmdAggiorna");
        Press("cmdTrasmette");
        EXPECT_EQ(commands.join(u'|').toStdString(),
                  "1301 08 05 01111110 2 005|1302 12 05 01111110 2 005|"
                  "1303 13 35 01111110 2 005|1304 17 35 01111110 2 005")
            << model;
        EXPECT_EQ(Terminal().Bells().Rings().size(), 4U);
        EXPECT_EQ(Outcome().toStdString(), "4/32 Comunicazione OK");
        EXPECT_EQ(Status(), "Comunicazione OK");
        Press("cmdUscita");
    }
}

TEST_F(FrmRingOrloII, WithoutRowsOrloIISends32TelegramsAndOrloTreNone)
{
    UseDatabase("nimbo-base-2000.mdb");
    Open("Orlo II");
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    Press("cmdUscita");
    Controls().ListaTerminali->clear();
    commands.clear();
    Open("OrloTre");
    Press("cmdTrasmette");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(), "Comunicazione OK");
}

TEST_F(FrmRingOrloII, SendingStopsAtTheFirstTimeout)
{
    Open("Orlo II", {"3:silenzio"});
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 3);
    EXPECT_EQ(Status(), "Timeout");
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_EQ(Terminal().Bells().Rings().count(1), 1U) << "what was sent stays";
}

TEST_F(FrmRingOrloII, ABadFrameIsNotExaminedButToldBeside)
{
    Open("Orlo II", {"3:checksum-errato"});
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(QStringLiteral("risposte 31 su 32")))
        << Controls().LabelUltimoComando->text().toStdString();
}

TEST_F(FrmRingOrloII, APortThatDoesNotOpenIsSaid)
{
    Open();
    pc.com1.device_missing = true;
    for (const char* button : {"cmdTrasmette", "cmdReset"}) {
        pc.dialog.answer_yes = true;
        Press(button);
        EXPECT_EQ(Status(), "Errore aprendo la COM") << button;
        EXPECT_EQ(Outcome(), QStringLiteral("Errore aprendo la COM")) << button;
        EXPECT_TRUE(commands.isEmpty()) << button;
    }
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, AnOpenLineIsUsedAndLeftOpen)
{
    Open();
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    Press("cmdTrasmette");
    EXPECT_EQ(commands.size(), 32);
    EXPECT_EQ(pc.com1.times_opened, 1);
    EXPECT_TRUE(pc.com1.PortOpen());
}

TEST_F(FrmRingOrloII, TheLineOfAnotherPortIsNotUsed)
{
    Open();
    state.SessionPort = 2;
    Controls().Verde->show();
    Press("cmdTrasmette");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(),
              "Errore: è collegata la linea della COM 2, non quella di questo terminale.");
}

TEST_F(FrmRingOrloII, ResetClearsTheTerminalAndTheListAndNotTheTable)
{
    Open();
    Press("cmdTrasmette");
    commands.clear();
    pc.dialog.answer_yes = true;
    Press("cmdReset");
    ASSERT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(pc.dialog.asked[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.asked[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.asked[0].text, QStringLiteral("Si desidera azzerare le suonerie?"));
    EXPECT_EQ(commands.join(u'|'), QStringLiteral("14CLEAR"));
    EXPECT_TRUE(Terminal().Bells().Rings().empty());
    EXPECT_EQ(Status(), "Comunicazione OK");
    EXPECT_EQ(List().Lines(), RingLines({}));
    EXPECT_EQ(Exported(), std::string(kTerminal1) + kTerminal4);
}

TEST_F(FrmRingOrloII, ResetThatIsNotConfirmedDoesNothing)
{
    Open();
    Press("cmdReset");
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Status(), "");
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, ResetWithoutAnAnswerLeavesTheList)
{
    Open("Orlo II", {"14*:richiesta-persa"});
    pc.dialog.answer_yes = true;
    Press("cmdReset");
    EXPECT_EQ(Status(), "Timeout");
    EXPECT_EQ(Line(0), "01   08:05     05     0 1 1 1 1 1 1 0    0 1");
}

TEST_F(FrmRingOrloII, TheWeekIsDrawnAndAMarkChoosesItsLine)
{
    Open();
    ClickLine(31);
    auto& drawing = Control<WeekDrawing>(QStringLiteral("DisegnoSettimana"));
    ASSERT_EQ(drawing.Marks().size(), 24U) << "four rings on six days";
    std::size_t mark = 0;
    while (drawing.Marks()[mark].minute != 13 * 60 + 35) ++mark;
    EXPECT_TRUE(drawing.Marks()[mark].hollow) << "relay B";
    QTest::mouseClick(&drawing, Qt::LeftButton, {}, drawing.Places()[mark].center().toPoint());
    EXPECT_EQ(List().currentRow(), 2);
    EXPECT_TRUE(drawing.Marks()[mark].chosen);
}

TEST_F(FrmRingOrloII, NothingReactsWhileRingsAreSentAndACloseFollows)
{
    Open();
    bool inert = true;
    const auto carry = pc.com1.answer_to;
    pc.com1.answer_to = [&](std::string_view request) {
        for (const char* button : {"cmdAggiorna", "cmdTrasmette", "cmdReset", "cmdUscita"})
            inert = inert && !Enabled(button);
        QTest::keyClick(bells, Qt::Key_Escape);
        const int row = List().currentRow();
        QTest::keyClick(&List(), Qt::Key_Down);
        inert = inert && List().currentRow() == row;
        bells->close();
        inert = inert && bells->isVisible();
        return carry(request);
    };
    Press("cmdTrasmette");
    EXPECT_TRUE(inert);
    EXPECT_EQ(commands.size(), 32);
    EXPECT_FALSE(bells->isVisible());
}

TEST_F(FrmRingOrloII, EscapeClosesAndNoPortIsHeld)
{
    Open();
    QTest::keyClick(bells, Qt::Key_Escape);
    EXPECT_FALSE(bells->isVisible());
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(FrmRingOrloII, EveryInputHasANameAndNoTwoMnemonicsAreAlike)
{
    Open();
    QString letters;
    const auto take = [&letters](const QString& text) {
        const qsizetype mark = text.indexOf(u'&');
        if (mark < 0) return;
        EXPECT_FALSE(letters.contains(text[mark + 1].toUpper())) << text.toStdString();
        letters += text[mark + 1].toUpper();
    };
    for (const QAbstractButton* button : bells->findChildren<QAbstractButton*>()) {
        take(button->text());
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    }
    for (const QLabel* label : bells->findChildren<QLabel*>())
        if (label->buddy() != nullptr) take(label->text());
    EXPECT_EQ(letters.size(), 17);
    for (const QLineEdit* field : bells->findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
}

TEST_F(FrmRingOrloII, ALineIsReadOutInWords)
{
    Open();
    const auto words = [this](int row) {
        return List().item(row)->data(Qt::AccessibleTextRole).toString().toStdString();
    };
    EXPECT_EQ(words(0),
              "1: 08:05, durata 5, lunedì martedì mercoledì giovedì venerdì sabato, relè B");
    EXPECT_EQ(words(4), "5: nessuna suoneria");
}

}  // namespace
}  // namespace orlo::testing
