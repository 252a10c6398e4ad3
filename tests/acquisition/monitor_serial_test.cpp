#include "simulator/frame.h"
#include "tests/acquisition/monitor_fixture.h"
#include "tests/support/file_size_limit.h"

namespace orlo::testing
{
namespace
{

class SerialMonitor : public MonitorTest
{
protected:
    void Connect(const char* model, const std::string& settings,
                 const std::vector<std::string>& faults = {})
    {
        ConnectedWindow::Connect(QString::fromLatin1(model), settings, faults);
    }

    /// A terminal that answers what it is told to, whatever the request.
    void Answering(const char* model, std::vector<std::string> answers)
    {
        Register(kTerminal, QString::fromLatin1(model));
        pc.com1.answer_to = [answers = std::move(answers), next = std::size_t{0},
                             this](std::string_view request) mutable {
            commands << QString::fromLatin1(request.data() + 2,
                                            static_cast<qsizetype>(request.size()) - 4);
            std::vector<Arrival> arrivals;
            if (next < answers.size())
                arrivals.push_back({{}, simulator::AnswerFrame(kTerminal, answers[next++])});
            return arrivals;
        };
    }

    /// Puts another terminal of COM1 into the register and selects it. There is nothing behind it.
    void SelectAnother(const char* model)
    {
        Register(kTerminal + 1, QString::fromLatin1(model));
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
        commands.clear();
    }

    /// Escape is pressed, and the question answered, when that request goes out.
    void EscapeAt(const QString& request, bool yes)
    {
        pc.dialog.answer_yes = yes;
        pc.com1.answer_to = [this, request, carry = pc.com1.answer_to](std::string_view bytes) {
            std::vector<Arrival> arrivals = carry(bytes);
            pc.escape.pressed = pc.escape.pressed || commands.back() == request;
            return arrivals;
        };
    }

    /// Requests for blocks, the others apart.
    QStringList Blocks() const
    {
        QStringList blocks;
        for (const QString& command : commands)
            if (command.startsWith(QStringLiteral("30"))) blocks << command.mid(2);
        return blocks;
    }
    static QString NoStatus() { return QStringLiteral("Errore: stato della memoria non arrivato"); }
    /// How a reading ends that lists what it can get: in the box, below the given text.
    void ExpectDoubt(const QString& outcome, const QString& informative) const
    {
        EXPECT_EQ(Label("EsitoMonitor"), outcome);
        EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(outcome));
        ASSERT_FALSE(pc.dialog.told.empty());
        EXPECT_EQ(pc.dialog.told.back().text, QStringLiteral("Ricezione dati OK"));
        EXPECT_EQ(pc.dialog.told.back().informative, informative);
    }
    static QStringList Texts(std::initializer_list<const char*> texts)
    {
        QStringList list;
        for (const char* text : texts) list << QString::fromLatin1(text);
        return list;
    }
};

constexpr const char* kStatus41 = "TPnt 00041 TrInMemory 00042 TpntOld 00000 TpntNew 00041";
constexpr const char* kRecord = "9 123456000108300015030601";

std::string Records(int count)
{
    std::string records;
    for (int i = 0; i < count; ++i) records += kRecord;
    return records + "END";
}

TEST_F(SerialMonitor, PointerOf41AsksForBlocks0To5)
{
    Connect("Strale", "timbrature=42");
    Read();
    EXPECT_EQ(commands, Texts({"32", "300", "301", "302", "303", "304", "305"}));
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:  42"));
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 42"));
    EXPECT_EQ(Lines().size(), 42);
    EXPECT_EQ(Lines().constFirst().left(8), QStringLiteral("0001    "));
    EXPECT_EQ(Lines().constLast().left(8), QStringLiteral("0042    "));
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Find<QProgressBar>("PercentualeMonitor").text(), QStringLiteral("0%"));
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_FALSE(QFile::exists(FileName()));
}

TEST_F(SerialMonitor, LastBlockIsAskedForWhenTheTerminalHasMore)
{
    Answering("Strale", {kStatus41, Records(10), Records(10), Records(10), Records(10), Records(10),
                         Records(10), Records(10)});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "2", "3", "4", "5"}));
    EXPECT_EQ(Lines().size(), 60);
    ExpectDoubt(
        QStringLiteral("Errore: la lista può non essere completa"),
        QStringLiteral("Il terminale contiene più timbrature di quante ne ha dichiarate: la "
                       "lista può non essere completa e gli stati non valgono."));
}

TEST_F(SerialMonitor, EndEndsTheReadingBeforeTheLastBlock)
{
    Answering("Strale", {kStatus41, Records(10), "END", Records(10)});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 10);
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(SerialMonitor, EachModelIsCountedAndToldByItsOwnRule)
{
    const struct {
        const char* model;
        const char* present;
        int to_acquire;
    } cases[] = {{"Orlo II", "42", 12}, {"Strale", "42", 12},      {"Strale N", "42", 12},
                 {"Lumo", "42", 12},    {"SuperStrale", "42", 12}, {"OrloTre", "41", 11}};
    for (const auto& [model, present, to_acquire] : cases) {
        Answering(model, {"TPnt 00041 TrInMemory 00012 TpntOld 00030 TpntNew 00041", Records(10),
                          Records(10), "END"});
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
        Read();
        EXPECT_EQ(Label("LabelTransazioni"),
                  QStringLiteral("Transazioni Presenti:  ") + QString::fromLatin1(present))
            << model;
        EXPECT_EQ(States().count(QStringLiteral("Da Acquisire")), to_acquire) << model;
        EXPECT_EQ(States().count(QStringLiteral("Acquisita")), 20 - to_acquire) << model;
        EXPECT_EQ(States().indexOf(QStringLiteral("Acquisita")), to_acquire) << model;
        form.close();
    }
}

TEST_F(SerialMonitor, FailedBlockIsAskedForAgain)
{
    Connect("Strale", "timbrature=25", {"30#2:silenzio", "30#3:checksum-errato"});
    QStringList captions;
    QObject::connect(Controls().PannelloComunicazione, &TextPanel::TextChanged, &form,
                     [&captions](const QString& text) { captions << text; });
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "1", "1", "2", "3"}));
    EXPECT_EQ(Lines().size(), 25);
    EXPECT_EQ(captions.filter(QRegularExpression(QStringLiteral("Timeout|RX Error"))),
              Texts({"Timeout", "RX Error"}));
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_TRUE(pc.dialog.told[0].informative.isEmpty());
}

TEST_F(SerialMonitor, LateAnswerIsNotTakenForTheNextBlock)
{
    Connect("Strale", "timbrature=25", {"30#2:ritardo=2500"});
    Read();
    QStringList without_numbers;
    for (const QString& text : Lines()) without_numbers << text.mid(8);
    EXPECT_EQ(without_numbers.size(), 25);
    EXPECT_EQ(without_numbers.removeDuplicates(), 0);
}

TEST_F(SerialMonitor, BlockWithoutAnAnswerIsLeftOutAndTold)
{
    // Block 1 three times in vain.
    Connect("Strale", "timbrature=25", {"30#2:silenzio", "30#3:silenzio", "30#4:silenzio"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "1", "1", "2", "3"}));
    EXPECT_EQ(Lines().size(), 15);
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 25"));
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_TRUE(pc.dialog.told[0].informative.startsWith(
        QStringLiteral("Di un blocco di timbrature non è arrivata la risposta: ")));
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: blocchi non arrivati: 1"));
}

TEST_F(SerialMonitor, RetriesAreThoseInTheWindow)
{
    Connect("Strale", "timbrature=3", {"30*:silenzio"});
    Controls().Tentativi->setText(QStringLiteral("2"));
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "0", "1", "1"}));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
}

TEST_F(SerialMonitor, SilentTerminalIsAskedForNothingMore)
{
    Connect("Strale", "", {"*:silenzio"});
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_TRUE(Button("cmdMonitor").isEnabled());
}

TEST_F(SerialMonitor, CountersOfAnotherTerminalAreNotUsed)
{
    Connect("Strale", "timbrature=25");
    Read();
    form.close();
    SelectAnother("Strale");
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_EQ(Label("LabelScaricate"), QString());
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(NoStatus()));
    EXPECT_EQ(Told(), ReceptionOk()) << "that of the first reading";
}

TEST_F(SerialMonitor, PortOfAnotherTerminalThatDoesNotOpenIsTheOutcome)
{
    Connect("Strale", "timbrature=25");
    Read();
    form.close();
    SelectAnother("Strale");
    pc.com1.device_missing = true;
    Read();
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore aprendo la COM"));
}

TEST_F(SerialMonitor, StatusThatTimedOutLeavesTheTerminalItsOwnCounters)
{
    Connect("Strale", "timbrature=25", {"32#2:silenzio"});
    Read();
    ReadAgain();
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:  25"));
    EXPECT_EQ(Lines().size(), 25);
    ExpectDoubt(NoStatus(),
                QStringLiteral("Lo stato della memoria non è arrivato: la lista può non "
                               "essere completa e gli stati non valgono."));
}

TEST_F(SerialMonitor, BadFrameOfTheStatusIsToldAndReadByThePointer0)
{
    Connect("Strale", "timbrature=25", {"32#1:checksum-errato"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 20);
    ExpectDoubt(NoStatus(),
                QStringLiteral("Lo stato della memoria non è arrivato: la lista può non "
                               "essere completa e gli stati non valgono."));
}

TEST_F(SerialMonitor, StatusWithoutCountersIsToldAndReadByThePointer0)
{
    Answering("Strale", {"COMANDO SCONOSCIUTO", Records(3), "END"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 3);
    ExpectDoubt(NoStatus(),
                QStringLiteral("Lo stato della memoria non è arrivato: la lista può non "
                               "essere completa e gli stati non valgono."));
}

TEST_F(SerialMonitor, StatusTooShortForAPointerAsksForNothing)
{
    Answering("Strale", {"OK"});
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_EQ(Label("EsitoMonitor"), NoStatus());
    EXPECT_TRUE(Told().isEmpty());
}

TEST_F(SerialMonitor, MissingBlockOfADoubtfulReadingIsToldToo)
{
    Connect("Strale", "timbrature=25", {"32#1:checksum-errato", "30*:silenzio"});
    Read();
    ExpectDoubt(NoStatus(),
                QStringLiteral("Lo stato della memoria non è arrivato: la lista può non "
                               "essere completa e gli stati non valgono. Di 2 blocchi di "
                               "timbrature non è arrivata la risposta: la lista non è "
                               "completa, e numeri e stati dopo di essi non valgono."));
}

TEST_F(SerialMonitor, PortThatDoesNotOpenIsTheOutcome)
{
    Connect("Strale", "timbrature=3");
    pc.com1.device_missing = true;
    Read();
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore aprendo la COM"));
    EXPECT_TRUE(Told().isEmpty());
}

TEST_F(SerialMonitor, AnswerOfFewerThan26CharactersAddsNoLine)
{
    Answering("Strale", {"TPnt 00003 TrInMemory 00004 TpntOld 00000 TpntNew 00003",
                         "COMANDO SCONOSCIUTO", "END"});
    Read();
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 0"));
}

TEST_F(SerialMonitor, EveryRecordOfAnAnswerIsListedHoweverMany)
{
    Answering("Strale", {"TPnt 00014 TrInMemory 00015 TpntOld 00000 TpntNew 00014", Records(12),
                         Records(3), "END"});
    Read();
    EXPECT_EQ(Lines().size(), 15);
    EXPECT_EQ(Lines().constLast().left(8), QStringLiteral("0015    "));
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 13"));
}

TEST_F(SerialMonitor, BytesOfARecordAreTheSameInListAndListing)
{
    // In the place of the badge: byte 80, the euro sign; E8, "è"; LF, a blank.
    Answering("Strale", {"TPnt 00000 TrInMemory 00001 TpntOld 00000 TpntNew 00000",
                         "9 \x80\xE8\n456000108300015030601END", "END"});
    form.open();
    WantFile();
    ReadAgain();
    ASSERT_EQ(Lines().size(), 1);
    EXPECT_EQ(Lines()[0].mid(8, 6), QStringLiteral("€è 456"));
    EXPECT_EQ(Listing().mid(8, 6), QByteArray("\x80\xE8 456"));
    EXPECT_EQ(Listing().count('\n'), 1);
    Find<QLineEdit>("FiltroMonitor").setText(QStringLiteral("€È"));
    EXPECT_EQ(List().LinesSeen(), 1);
}

TEST_F(SerialMonitor, NoAttemptAsksForNothingAndSaysWhatIsMissing)
{
    Connect("Strale", "timbrature=3");
    Controls().Tentativi->setText(QStringLiteral("0"));
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: blocchi non arrivati: 2"));
}

TEST_F(SerialMonitor, DataThatReadsLikeAFailureIsOne)
{
    Answering("Strale", {"TPnt 00000 TrInMemory 00001 TpntOld 00000 TpntNew 00000", "TIMEOUT",
                         "RX ERROR", Records(1), "END"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "0", "0", "1"}));
    EXPECT_EQ(Lines().size(), 1);
}

TEST_F(SerialMonitor, NegativePointerAsksForAsManyBlocksAsItsTenthSays)
{
    Answering("Strale", {"TPnt -0012 TrInMemory 00000 TpntOld 00000 TpntNew 00000", "END"});
    Read();
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:  -11"));
    EXPECT_EQ(Blocks(), Texts({"0"}));
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(SerialMonitor, EmptyMemoryIsReadWithoutALine)
{
    Connect("Strale", "");
    Read();
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:  0"));
    EXPECT_EQ(Blocks(), Texts({"0"}));
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(SerialMonitor, NothingIsAcquiredByLooking)
{
    Connect("Strale", "timbrature=12,acquisite=5");
    Read();
    EXPECT_EQ(Terminal().Punches().Acquired(), 5U);
    EXPECT_EQ(States().count(QStringLiteral("Da Acquisire")), 7);
}

TEST_F(SerialMonitor, ListingHoldsTheVeryLinesAndReplacesAnEarlierOne)
{
    {
        QFile earlier(FileName());
        ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
        earlier.write(QByteArray(100000, 'x'));
    }
    Connect("Strale", "timbrature=12,acquisite=5");
    form.open();
    WantFile();
    ReadAgain();
    ASSERT_EQ(Lines().size(), 12);
    EXPECT_EQ(Listing(), ListAsFile());
}

TEST_F(SerialMonitor, FilterLeavesTheListingWhole)
{
    Connect("Strale", "timbrature=12,acquisite=5");
    form.open();
    WantFile();
    Find<QLineEdit>("FiltroMonitor").setText(QStringLiteral("Acquisita"));
    ReadAgain();
    EXPECT_EQ(List().LinesSeen(), 5);
    EXPECT_EQ(Listing().count("\r\n"), 12);
}

TEST_F(SerialMonitor, EscapeStopsBetweenBlocksAndTheListingIsWhole)
{
    Connect("Strale", "timbrature=60");
    EscapeAt(QStringLiteral("302"), /*yes=*/true);
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "2"}));
    EXPECT_EQ(Lines().size(), 30);
    EXPECT_EQ(Listing(), ListAsFile());
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Lettura interrotta"));
    EXPECT_EQ(Find<QProgressBar>("PercentualeMonitor").value(), 0);
    EXPECT_FALSE(pc.com1.PortOpen());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(SerialMonitor, EscapeAnsweredWithNoReadsOn)
{
    Connect("Strale", "timbrature=42");
    EscapeAt(QStringLiteral("302"), /*yes=*/false);
    Read();
    EXPECT_EQ(pc.dialog.asked.size(), 1U);
    EXPECT_EQ(Lines().size(), 42);
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(SerialMonitor, ListingThatCannotBeMadeStopsTheReading)
{
    Connect("Strale", "timbrature=12");
    ASSERT_TRUE(QDir().mkdir(FileName()));
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_TRUE(Blocks().isEmpty());
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(
        QStringLiteral("Impossibile scrivere il file \"MONITOR.TXT\": ")));
    ExpectListingNotWritten();
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(SerialMonitor, ListingThatIsNotWholeIsToldAndTheListIs)
{
    Connect("Strale", "timbrature=60");
    form.open();
    WantFile();
    {
        const FileSizeLimit full_disk(1000);
        ReadAgain();
    }
    EXPECT_EQ(Lines().size(), 60);
    ASSERT_EQ(pc.dialog.told.size(), 2U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_TRUE(pc.dialog.told[0].text.startsWith(
        QStringLiteral("Il file \"MONITOR.TXT\" non è completo: ")));
    EXPECT_EQ(pc.dialog.told[1].text, QStringLiteral("Ricezione dati OK"));
    ExpectListingNotWritten();
}

TEST_F(SerialMonitor, SecondReadingBeginsAnew)
{
    Connect("Strale", "timbrature=12");
    Read();
    ReadAgain();
    EXPECT_EQ(Lines().size(), 12);
    EXPECT_EQ(Lines().constFirst().left(4), QStringLiteral("0001"));
}

}  // namespace
}  // namespace orlo::testing
