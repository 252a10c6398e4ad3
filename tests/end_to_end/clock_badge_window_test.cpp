#include "tests/end_to_end/window_on_a_line.h"

#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

class ClockAndBadgeWindow : public WindowOnALine
{
protected:
    /// Presses a button; what the window says of the outcome, without its time.
    QString Press(QPushButton* button)
    {
        button->click();
        return Controls().LabelUltimoComando->text().section(u' ', 1);
    }
    /// How often this process has a device open.
    int TimesOpen(const char* device) const
    {
        namespace fs = std::filesystem;
        const fs::path wanted = fs::canonical(installation.PathOf(device));
        int times = 0;
        for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
            std::error_code gone;
            times += fs::read_symlink(descriptor.path(), gone) == wanted ? 1 : 0;
        }
        return times;
    }
    QStringList Layout()
    {
        QStringList texts;
        for (const QLineEdit* field :
             {Controls().InizioImpianto, Controls().LenImpianto, Controls().InizioBadge,
              Controls().LenBadge, Controls().NomeCard})
            texts << field->text();
        return texts;
    }
    void Enter(const QStringList& texts)
    {
        QLineEdit* const fields[] = {Controls().InizioImpianto, Controls().LenImpianto,
                                     Controls().InizioBadge, Controls().LenBadge,
                                     Controls().NomeCard};
        for (qsizetype i = 0; i < texts.size(); ++i) fields[i]->setText(texts[i]);
    }
};

TEST_P(ClockAndBadgeWindow, TestShowsTheTerminalAndItsMemory)
{
    Start(",timbrature=12,acquisite=5");
    EXPECT_EQ(Press(Controls().cmdTest), QStringLiteral("Test, terminale 7: Comunicazione OK"));
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("7"));
    EXPECT_FALSE(Controls().PannelloVersione->text().isEmpty());
    EXPECT_EQ(Controls().PannelloStato->text().isEmpty(), !GetParam().serial);
}

TEST_P(ClockAndBadgeWindow, ClockIsReadSetAndReadAgain)
{
    Start(",scarto=-95");
    EXPECT_EQ(Press(Controls().cmdLeggeOra),
              QStringLiteral("Lettura dell'ora, terminale 7: Comunicazione OK"));
    // A second may have ended between two of the readings.
    const QStringList slow = {QStringLiteral("−1 min 34 s"), QStringLiteral("−1 min 35 s"),
                              QStringLiteral("−1 min 36 s")};
    EXPECT_TRUE(slow.contains(Controls().LabelScarto->text()))
        << Controls().LabelScarto->text().toStdString();
    EXPECT_EQ(Press(Controls().cmdSincro),
              QStringLiteral("Sincronizzazione, terminale 7: Comunicazione OK"));
    EXPECT_LE(std::abs(std::stoi(line->State("7.scarto"))), 1);
    Press(Controls().cmdLeggeOra);
    const QStringList together = {QStringLiteral("−1 s"), QStringLiteral("0 s"),
                                  QStringLiteral("+1 s")};
    EXPECT_TRUE(together.contains(Controls().LabelScarto->text()))
        << Controls().LabelScarto->text().toStdString();
    EXPECT_TRUE(dialog.told.empty());
}

TEST_P(ClockAndBadgeWindow, BadgeLayoutIsReadBackAsItWasSent)
{
    Start("");
    const QStringList sent = {QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("9"),
                              QStringLiteral("10"), QStringLiteral("1275")};
    Enter(sent);
    Press(Controls().cmdTrasmetteCard);
    EXPECT_EQ(dialog.told.size(), GetParam().serial ? 0U : 1U);
    Enter({QString(), QString(), QString(), QString(), QString()});
    Press(Controls().cmdRiceveCard);
    EXPECT_EQ(Layout(), sent);
    EXPECT_FALSE(Controls().OraTerminale->text().isEmpty());
    if (GetParam().serial) {
        EXPECT_EQ(Controls().LabelUltimoComando->text().section(u' ', 1),
                  QStringLiteral("Lettura badge, terminale 7: risposte 5 su 5"));
    }
}

TEST_P(ClockAndBadgeWindow, OnlyASerialClockIsReadAgainByItself)
{
    Start("");
    Press(Controls().cmdTest);
    Controls().OraTerminale->clear();
    const bool read = QTest::qWaitFor([this] { return !Controls().OraTerminale->text().isEmpty(); },
                                      GetParam().serial ? 5000 : 1500);
    EXPECT_EQ(read, GetParam().serial);
}

TEST_P(ClockAndBadgeWindow, SilentTerminalIsSaidToBeAndTheNextTestWorks)
{
    // The first request of a test, whatever the model calls it.
    Start("", {"--guasto", "1:richiesta-persa"});
    Press(Controls().cmdTest);
    if (GetParam().serial)
        EXPECT_EQ(Controls().PannelloComunicazione->text(), QStringLiteral("Timeout"));
    else
        EXPECT_EQ(Controls().PannelloStato->text(), QStringLiteral("Errore:99,Time Out"));
    EXPECT_EQ(Press(Controls().cmdTest), QStringLiteral("Test, terminale 7: Comunicazione OK"));
}

TEST_P(ClockAndBadgeWindow, LeavingTheProgramClosesThePortThatATestLeftOpen)
{
    Start("", {"--guasto", "1:richiesta-persa"});
    Press(Controls().cmdTest);
    EXPECT_EQ(TimesOpen("com1"), 1);
    CloseRegister(desk->State());
    desk.reset();
    EXPECT_EQ(TimesOpen("com1"), 0);
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, ClockAndBadgeWindow, ::testing::ValuesIn(kModels),
                         [](const auto& model) { return model.param.test_name; });

}  // namespace
}  // namespace orlo::end_to_end
