#include "tests/end_to_end/opened_window.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>

namespace orlo::end_to_end
{
namespace
{

/// In the folder of the installation.
class MonitorAndConsole : public OpenedWindow
{
protected:
    void SetUp() override { QDir::setCurrent(QString::fromStdString(installation.PathOf(""))); }
    void TearDown() override { QDir::setCurrent(before_); }

    /// Without the delay that the register holds for terminal 7, which makes every record a wait.
    void Start(const std::string& settings, std::vector<std::string> more = {})
    {
        OpenedWindow::Start(settings, std::move(more));
        desk->State().TerminalTable.at(6).Ritardo = 0;
    }

    void OpenMonitor() { Open(Controls().cmdMonitorTimbrature, "FrmMonitor"); }
    void OpenConsole() { Open(Controls().cmdComandi, "FrmComandi"); }

    /// Has the monitor read, with its listing.
    void Read() const
    {
        Find<QCheckBox>("CheckMemo").setChecked(true);
        Press("cmdMonitor");
    }
    Lines Listed() const
    {
        Lines listed;
        const auto& list = Find<QListWidget>("ListaMonitor");
        for (int row = 0; row < list.count(); ++row)
            listed.push_back(list.item(row)->text().toStdString());
        return listed;
    }
    /// How many lines end, or go on, with that state in its column.
    long WithState(const char* state) const
    {
        const Lines listed = Listed();
        return std::count_if(listed.begin(), listed.end(), [state](const std::string& text) {
            return text.substr(62).starts_with(state);
        });
    }
    QString Boxes() const
    {
        QString texts;
        for (const auto& box : dialog.told) texts += box.text + u';';
        return texts;
    }

    void Send(const char* command, const char* parameters = "") const
    {
        Find<QLineEdit>("CommandField").setText(QLatin1String(command));
        Find<QLineEdit>("DataField").setText(QLatin1String(parameters));
        Press("cmdTrasmetteComando");
    }

private:
    QString before_ = QDir::currentPath();
};

/// Three punches, as the simulator reads them and as they are to be listed.
struct Sample {
    const char* source;
    Lines lines;
};

const Sample kSerialSample = {
    "9 123456 0001 15/03/2006 08:30\n"
    "1 654321 0012 15/03/2006 17:02\n"
    "5 000007 0000 16/03/1999 06:00\n",
    {"0001    000007  16/03/1999    06:00                  0000     Da Acquisire",
     "0002    654321  15/03/2006    17:02     Uscita       0012     Da Acquisire",
     "0003    123456  15/03/2006    08:30     Entrata      0001     Acquisita"}};

const Sample kObjectSample = {
    "Presenze Entrata 123456 01 1 15/03/2006 08:30\n"
    "Informazioni Info 0 OF 1000 15/03/2006 12:00\n"
    "Accessi Uscita 654321 12 12 15/03/2006 17:02:10\n",
    {"0001    123456  15/03/2006    08:30:00  Entrata      01       Inviata       Term. 7",
     "0002    0       15/03/2006    12:00:00  Info 1000    OF       Non Inviata   Term. 7",
     "0003    654321  15/03/2006    17:02:10  Uscita       12       Non Inviata   Term. 7"}};

TEST_P(MonitorAndConsole, EveryPunchIsListedAndWrittenAndNoneAcquired)
{
    const Sample& sample = GetParam().serial ? kSerialSample : kObjectSample;
    installation.Write("timbrature", sample.source);
    Start(",acquisite=1,file=" + installation.PathOf("timbrature"));
    OpenMonitor();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Monitor Terminale n° 7"));
    Read();
    EXPECT_EQ(Listed(), sample.lines);
    EXPECT_EQ(installation.PunchLines("MONITOR.TXT"), sample.lines);
    EXPECT_EQ(Boxes(), QStringLiteral("Ricezione dati OK;"));
    EXPECT_EQ(line->State("7.acquisite"), "1");
}

TEST_P(MonitorAndConsole, MemoryOfManyBlocksIsReadToItsEnd)
{
    Start(",timbrature=137,acquisite=50");
    OpenMonitor();
    Read();
    EXPECT_EQ(Listed().size(), 137U);
    EXPECT_EQ(WithState(GetParam().serial ? "Da Acquisire" : "Non Inviata"), 87);
    EXPECT_EQ(installation.PunchLines("MONITOR.TXT"), Listed());
    EXPECT_EQ(Label("LabelScaricate"), GetParam().serial
                                           ? QStringLiteral("Transazioni Acquisite: 137")
                                           : QStringLiteral("Transazioni Acquisite: 137 100%"));
    EXPECT_EQ(Label("LabelTransazioni"), GetParam().serial
                                             ? QStringLiteral("Transazioni Presenti:  137")
                                             : QStringLiteral("Transazioni Presenti:137"));
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
}

TEST_P(MonitorAndConsole, LostAnswerIsAskedForAgain)
{
    Start(",timbrature=25",
          {"--guasto", GetParam().serial ? "30#2:silenzio" : "record#2:silenzio"});
    OpenMonitor();
    Read();
    EXPECT_EQ(Listed().size(), 25U);
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
}

TEST_P(MonitorAndConsole, EscapeStopsTheReadingAndTheListingIsWhole)
{
    Start(",timbrature=200");
    OpenMonitor();
    dialog.answer_yes = true;
    bool pressed = false;
    QObject::connect(&Find<QProgressBar>("PercentualeMonitor"), &QProgressBar::valueChanged, form,
                     [&](int percent) {
                         if (percent > 20 && !std::exchange(pressed, true))
                             QTest::keyClick(form, Qt::Key_Escape);
                     });
    Read();
    EXPECT_EQ(dialog.asked.size(), 1U);
    EXPECT_TRUE(form->isVisible());
    EXPECT_GT(Listed().size(), 20U);
    EXPECT_LT(Listed().size(), 120U);
    EXPECT_EQ(installation.PunchLines("MONITOR.TXT"), Listed());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Lettura interrotta"));
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_P(MonitorAndConsole, TerminalThatIsSilentIsSaidToBe)
{
    Start("", {"--guasto", "*:richiesta-persa"});
    OpenMonitor();
    Press("cmdMonitor");
    EXPECT_EQ(Label("EsitoMonitor"),
              GetParam().serial ? QStringLiteral("Errore: stato della memoria non arrivato")
                                : QStringLiteral("Errore = 99,Time Out"));
    EXPECT_EQ(Boxes(), GetParam().serial ? QString() : QStringLiteral("Errore = 99,Time Out;"));
    EXPECT_TRUE(Find<QPushButton>("cmdMonitor").isEnabled());
}

TEST_P(MonitorAndConsole, CommandIsAnsweredInTheConsole)
{
    Start("");
    OpenConsole();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Comandi Terminale n° 7"));
    if (GetParam().serial)
        Send("BOH");
    else
        Send("ECO", "uno due");
    EXPECT_EQ(Label("ReceivedDataLabel"), GetParam().serial ? QStringLiteral("COMANDO SCONOSCIUTO")
                                                            : QStringLiteral("uno due"));
    EXPECT_EQ(Label("EsitoComando"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(line->Commands(GetParam().serial ? "BOH" : "telegramma"),
              GetParam().serial ? "BOH" : "telegramma ECO uno due");
}

TEST_P(MonitorAndConsole, ConsoleSaysHowACommandFailed)
{
    Start("", {"--guasto", "1:richiesta-persa"});
    OpenConsole();
    Send("ECO");
    EXPECT_EQ(Label("ReceivedDataLabel"), QString());
    EXPECT_EQ(Label("EsitoComando"), GetParam().serial ? QStringLiteral("Timeout") : QString());
    EXPECT_EQ(Label("ReceveidCommand"),
              GetParam().serial ? QString() : QStringLiteral("99,Time Out"));
}

TEST_P(MonitorAndConsole, NeitherWindowKeepsTheLineBusy)
{
    Start(",timbrature=3");
    OpenMonitor();
    Read();
    form->close();
    OpenConsole();
    Send("ECO");
    form->close();
    Controls().cmdTest->click();
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(
        QStringLiteral("Test, terminale 7: Comunicazione OK")));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, MonitorAndConsole, ::testing::ValuesIn(kModels),
                         [](const auto& model) { return model.param.test_name; });

}  // namespace
}  // namespace orlo::end_to_end
