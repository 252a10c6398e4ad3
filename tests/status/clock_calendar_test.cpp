// Reading and setting clocks through the days of the calendar, and by how much they differ.

#include "status/legge_data_ora.h"
#include "status/sicronizzazione.h"
#include "tests/support/object_window.h"

namespace orlo::testing
{
namespace
{

class ClockCalendar : public ObjectWindow
{
protected:
    void ConnectSerial(const char* model, const std::string& settings = {})
    {
        ConnectedWindow::Connect(QString::fromLatin1(model), settings);
    }
    /// Time, date and the PC's, as they are shown.
    QStringList Shown() const
    {
        return {Controls().OraTerminale->text(), Controls().DataTerminale->text(),
                Controls().Sistema->text()};
    }
    QString Difference() const { return Controls().LabelScarto->text(); }
};

struct Moment {
    QDate date;
    QTime time;
    const char* terminal_date;
    const char* terminal_time;
    const char* pc;
    const char* command;
};

// clang-format off
const Moment kMoments[] = {
    {{2026, 3, 1}, {14, 7, 9}, "Dom 01/03/26", "14:07:09", "01/03/2026 - 14:07:09", "012603011407090"},
    {{2026, 3, 2}, {14, 7, 9}, "Lun 02/03/26", "14:07:09", "02/03/2026 - 14:07:09", "012603021407091"},
    {{2026, 3, 3}, {14, 7, 9}, "Mar 03/03/26", "14:07:09", "03/03/2026 - 14:07:09", "012603031407092"},
    {{2026, 3, 4}, {14, 7, 9}, "Mer 04/03/26", "14:07:09", "04/03/2026 - 14:07:09", "012603041407093"},
    {{2026, 3, 5}, {14, 7, 9}, "Gio 05/03/26", "14:07:09", "05/03/2026 - 14:07:09", "012603051407094"},
    {{2026, 3, 6}, {14, 7, 9}, "Ven 06/03/26", "14:07:09", "06/03/2026 - 14:07:09", "012603061407095"},
    {{2026, 3, 7}, {14, 7, 9}, "Sab 07/03/26", "14:07:09", "07/03/2026 - 14:07:09", "012603071407096"},
    {{2028, 2, 29}, {10, 11, 12}, "Mar 29/02/28", "10:11:12", "29/02/2028 - 10:11:12", "012802291011122"},
    {{2028, 2, 29}, {0, 0, 0}, "Mar 29/02/28", "00:00:00", "29/02/2028 - 00:00:00", "012802290000002"},
    {{2026, 12, 31}, {23, 59, 59}, "Gio 31/12/26", "23:59:59", "31/12/2026 - 23:59:59", "012612312359594"},
    {{2027, 1, 1}, {0, 0, 0}, "Ven 01/01/27", "00:00:00", "01/01/2027 - 00:00:00", "012701010000005"},
};
// clang-format on

TEST_F(ClockCalendar, EveryMomentIsShownAndSentByModelsWithAWeekday)
{
    ConnectSerial("Strale");
    for (const Moment& moment : kMoments) {
        pc.clock.SetDate(moment.date);
        pc.clock.SetTimeOfDay(moment.time);
        cmdLeggeOra_Click(window);
        EXPECT_EQ(Shown(), (QStringList{QString::fromLatin1(moment.terminal_time),
                                        QString::fromLatin1(moment.terminal_date),
                                        QString::fromLatin1(moment.pc)}))
            << moment.command;
        EXPECT_EQ(Difference(), QStringLiteral("0 s")) << moment.command;
        cmdSincro_Click(window);
        EXPECT_EQ(commands.last(), QString::fromLatin1(moment.command));
    }
}

TEST_F(ClockCalendar, EveryMomentIsShownAndSentByModelsWithoutOne)
{
    ConnectSerial("OrloTre");
    for (const Moment& moment : kMoments) {
        pc.clock.SetDate(moment.date);
        pc.clock.SetTimeOfDay(moment.time);
        cmdLeggeOra_Click(window);
        // Without the name of the day; and one character more of the time, the blank before it.
        EXPECT_EQ(Shown(), (QStringList{u' ' + QString::fromLatin1(moment.terminal_time),
                                        QString::fromLatin1(moment.terminal_date).mid(4),
                                        QString::fromLatin1(moment.pc)}))
            << moment.command;
        EXPECT_EQ(Difference(), QStringLiteral("0 s")) << moment.command;
        cmdSincro_Click(window);
        EXPECT_EQ(commands.last(), QString::fromLatin1(moment.command));
    }
}

TEST_F(ClockCalendar, DifferenceIsSaidAsAPersonWouldSayIt)
{
    struct Case {
        const char* offset;
        const char* difference;
    };
    const Case cases[] = {
        {"0", "0 s"},
        {"59", "+59 s"},
        {"-60", "−1 min"},
        {"-95", "−1 min 35 s"},
        {"95", "+1 min 35 s"},
        {"-3599", "−59 min 59 s"},
        {"7000", "+1 h 56 min"},
        {"-86400", "−1 g"},
        {"129600", "+1 g 12 h"},
    };
    for (const char* model : {"Strale", "SuperStrale"})
        for (const Case& c : cases) {
            ConnectSerial(model, std::string("scarto=") + c.offset);
            cmdLeggeOra_Click(window);
            EXPECT_EQ(Difference(), QString::fromUtf8(c.difference)) << model;
        }
}

TEST_F(ClockCalendar, DifferenceToAClockThatCannotBeReadIsNotSaid)
{
    Connect();
    struct Case {
        const char* time;
        const char* date;
    };
    for (const Case& c : {Case{"99:00:00", "05/03/2026"}, Case{"08:00:03", "30/02/2026"},
                          Case{"", ""}, Case{"boh", "05/03/2026"}}) {
        terminal.terminal_time = c.time;
        terminal.terminal_date = c.date;
        cmdLeggeOra_Click(window);
        EXPECT_EQ(Difference(), QString()) << c.time;
        EXPECT_EQ(Controls().OraTerminale->text(), QString::fromLatin1(c.time));
    }
}

TEST_F(ClockCalendar, ShortAnswersOfEachLengthFillTheDisplaysWithWhatIsThere)
{
    struct Case {
        const char* model;
        const char* answer;
        const char* time;
        const char* date;
    };
    // SOH, address of terminal 4, the answer, its checksum, CR.
    const Case cases[] = {
        {"Strale", "\x01\x84\x85\r", "", ""},
        {"Strale",
         "\x01\x84"
         "5\xBA\r",
         "5", ""},
        {"Strale",
         "\x01\x84"
         "1234567890\x92\r",
         "34567890", "0"},
        {"OrloTre", "\x01\x84\x85\r", "", ""},
        {"OrloTre",
         "\x01\x84"
         "1234567890\x92\r",
         "234567890", ""},
        {"OrloTre",
         "\x01\x84"
         "12345678901\xC3\r",
         "345678901", "1"},
    };
    for (const Case& c : cases) {
        ConnectSerial(c.model);
        pc.com1.answer_to = [&c](std::string_view) { return std::vector<Arrival>{{{}, c.answer}}; };
        cmdLeggeOra_Click(window);
        EXPECT_EQ(Controls().OraTerminale->text(), QString::fromLatin1(c.time)) << c.answer;
        EXPECT_EQ(Controls().DataTerminale->text(), QString::fromLatin1(c.date)) << c.answer;
        EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    }
}

TEST_F(ClockCalendar, WithoutAPortTheLineOfTheLastCommandSaysSo)
{
    ConnectSerial("Strale");
    Controls().ComboPorta->Show(QString());
    for (const auto& command : {std::function<void()>([this] { cmdLeggeOra_Click(window); }),
                                std::function<void()>([this] { cmdSincro_Click(window); })}) {
        Controls().LabelUltimoComando->setText(QStringLiteral("prima"));
        window.RunCommand(Controls().cmdLeggeOra, QStringLiteral("Prova in corso…"),
                          EscapeUse::Ignored, command);
        EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(
            QStringLiteral("Prova, terminale 4: nessuna porta")));
    }
    EXPECT_TRUE(commands.isEmpty());
}

}  // namespace
}  // namespace orlo::testing
