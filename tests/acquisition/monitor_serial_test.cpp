#include "tests/acquisition/serial_monitor_fixture.h"

namespace orlo::testing
{
namespace
{

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
    ExpectOtherThanDeclared(More());
}

TEST_F(SerialMonitor, PunchMadeDuringTheReadingIsTold)
{
    // It came behind block 1 and shifted what followed by one.
    Answering("Strale", {kStatus24, Records(10), Records(10), Records(6), "END"});
    Read();
    EXPECT_EQ(Lines().size(), 26);
    ExpectOtherThanDeclared(More());
}

TEST_F(SerialMonitor, EndEndsTheReadingBeforeTheLastBlock)
{
    Answering("Strale", {kStatus41, Records(10), "END", Records(10)});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1"}));
    EXPECT_EQ(Lines().size(), 10);
    ExpectOtherThanDeclared(Fewer());
}

TEST_F(SerialMonitor, FewerPunchesThanDeclaredAreToldByEachModelsCount)
{
    const struct {
        const char* model;
        const char* pointer;
        int listed;
        bool told;
    } cases[] = {{"Strale", "00009", 10, false},
                 {"Strale", "00009", 9, true},
                 {"OrloTre", "00010", 10, false},
                 {"OrloTre", "00010", 9, true}};
    for (const auto& [model, pointer, listed, told] : cases) {
        Answering(model,
                  {std::string("TPnt ") + pointer + " TrInMemory 00010 TpntOld 00000 TpntNew 00010",
                   Records(listed), "END"});
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
        Read();
        EXPECT_EQ(pc.dialog.told.back().informative, told ? Fewer() : QString())
            << model << ", " << listed;
        form.close();
    }
}

TEST_F(SerialMonitor, TerminalEmptiedBeforeItIsReadHasFewerThanDeclared)
{
    Answering("Strale", {kStatus24, "END"});
    Read();
    EXPECT_TRUE(Lines().isEmpty());
    ExpectOtherThanDeclared(Fewer());
}

TEST_F(SerialMonitor, BlockThatIsCutShortIsTold)
{
    Answering("Strale", {kStatus24, Records(10), "9 123456000108300015", Records(5), "END"});
    Read();
    EXPECT_EQ(Lines().size(), 15);
    ExpectOtherThanDeclared(Fewer());
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

TEST_F(SerialMonitor, LostAnswerToTheLastRequestIsNotTheOutcome)
{
    Connect("Strale", "timbrature=25", {"30#4:silenzio"});
    Read();
    EXPECT_EQ(Blocks(), Texts({"0", "1", "2", "3", "3"}));
    EXPECT_EQ(Lines().size(), 25);
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
    EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(QStringLiteral("Comunicazione OK")));
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
    EXPECT_EQ(pc.dialog.told[0].informative,
              QStringLiteral(
                  "Attenzione: di un blocco di timbrature non è arrivata la risposta: la lista non "
                  "è completa, e numeri e stati dopo di esso non valgono."));
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
    ExpectOtherThanDeclared(Fewer());
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

TEST_F(SerialMonitor, TerminalWithoutAttemptsIsAskedForNothingAndTheReasonTold)
{
    // As a database leaves it that got the column when it was upgraded.
    Connect("Strale", "timbrature=25");
    state.TerminalTable[kTerminal - 1].Tentativi = 0;
    window.SelectTerminalLine(0);
    Read();
    EXPECT_EQ(commands, Texts({"32"}));
    const QString reason = QStringLiteral("Errore: i tentativi sono 0");
    EXPECT_EQ(Label("EsitoMonitor"), reason);
    EXPECT_EQ(Told(), QStringList{QStringLiteral("Comunicazione|") + reason});
    EXPECT_EQ(pc.dialog.told[0].informative, QString());
    EXPECT_FALSE(pc.com1.PortOpen());
}

TEST_F(SerialMonitor, LineThatFallsEndsTheReadingAndIsTheOutcome)
{
    Connect("Strale", "timbrature=60");
    LoseLineAt(QStringLiteral("302"));
    QList<int> values;
    QObject::connect(&Find<QProgressBar>("PercentualeMonitor"), &QProgressBar::valueChanged, &form,
                     [&values](int value) { values << value; });
    Read();
    EXPECT_EQ(Lines().size(), 20);
    // The status, blocks 0 and 1, and the three attempts for block 2.
    EXPECT_EQ(pc.com1.sent.size(), 6U);
    EXPECT_EQ(values, (QList<int>{14, 28, 0}));
    const QString fallen = QStringLiteral("Errore: la linea è caduta.");
    EXPECT_EQ(Label("EsitoMonitor"), fallen);
    EXPECT_EQ(Told(), QStringList{QStringLiteral("Comunicazione|") + fallen});
    EXPECT_EQ(pc.dialog.told[0].informative, QString());
}

TEST_F(SerialMonitor, HeldLineThatFallsAsksForALogOff)
{
    Connect("Strale", "timbrature=60");
    ASSERT_TRUE(pc.com1.SetPortOpen(true));
    state.SessionPort = 1;
    Controls().Verde->show();
    LoseLineAt(QStringLiteral("302"));
    Read();
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: la linea è caduta. Premere Log-off."));
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

}  // namespace
}  // namespace orlo::testing
