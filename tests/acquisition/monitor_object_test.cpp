#include "tests/acquisition/monitor_fixture.h"
#include "tests/support/fake_component.h"
#include "tests/support/file_size_limit.h"

namespace orlo::testing
{
namespace
{

/// Terminal 4 is an Orlo of priorities 7 and 6 behind a component in memory.
class ObjectMonitor : public MonitorTest
{
protected:
    FakeComponent component;

    void SetUp() override
    {
        MonitorTest::SetUp();
        state.Component = component.Make();
        RegisterObject("Orlo");
    }
    void TearDown() override
    {
        state.Component.reset();
        MonitorTest::TearDown();
    }
    void Punches(int count) { component.records.resize(static_cast<std::size_t>(count)); }
    void WholeMemory() { Find<QCheckBox>("ChkTuttaMemoria").setChecked(true); }

    using Calls = std::vector<std::string>;
};

TEST_F(ObjectMonitor, ReadsAsManyRecordsAsTheTerminalReports)
{
    Punches(3);
    component.records[0].Deleted = true;
    component.records[1].Cause = "12";
    component.records[2].Direction = "Info";
    component.records[2].PersonalCause = 1002;
    Read();
    EXPECT_EQ(component.calls,
              (Calls{"OpenComunication(1, 9600)", "GetNumber(4, 7)", "GetRecord(4, 6, 1)",
                     "GetRecord(4, 6, 2)", "GetRecord(4, 6, 3)"}));
    const QStringList expected = {
        QStringLiteral("0001    123456  15/03/2006    08:30     Entrata               Inviata   "
                       "    Term. 4"),
        QStringLiteral("0002    123456  15/03/2006    08:30     Entrata      12       Non Inviat"
                       "a   Term. 4"),
        QStringLiteral("0003    123456  15/03/2006    08:30     Info 1002             Non Inviat"
                       "a   Term. 4")};
    EXPECT_EQ(Lines(), expected);
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:3"));
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 3 100%"));
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(component.Marked(), 1);
}

TEST_F(ObjectMonitor, SipaIsReadLikeAnOrlo)
{
    RegisterObject("Sipa");
    Punches(2);
    Read();
    EXPECT_EQ(Lines().size(), 2);
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(ObjectMonitor, WholeMemoryIs4000RecordsWhateverIsReported)
{
    Punches(4100);
    component.told_records = 5;
    form.open();
    WholeMemory();
    ReadAgain();
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 4000U);
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:5"));
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 4000 100%"));
    EXPECT_EQ(Lines().constLast().left(8), QStringLiteral("4000    "));
}

TEST_F(ObjectMonitor, RecordWithTheHighestNumberIsTheLast)
{
    Punches(32767);
    component.told_records = 40000;
    // Laying so many lines out again and again would take half a minute.
    component.on_call = [this](const std::string&) { List().Empty(); };
    Read();
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 32767U);
    EXPECT_EQ(component.calls.back(), "GetRecord(4, 6, 32767)");
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 32767 100%"));
}

TEST_F(ObjectMonitor, WholeMemoryEndsWithTheTerminalsLastRecord)
{
    Punches(42);
    form.open();
    WholeMemory();
    QList<int> progress;
    QObject::connect(&Find<QProgressBar>("PercentualeMonitor"), &QProgressBar::valueChanged, &form,
                     [&progress](int value) { progress << value; });
    ReadAgain();
    EXPECT_EQ(progress, (QList<int>{1, 100, 0})) << "42 of 4000, then that this was all";
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 43U);
    EXPECT_EQ(Lines().size(), 42);
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 42 100%"));
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(ObjectMonitor, WholeMemoryThatIsEmptyHasAnOutcome)
{
    form.open();
    WholeMemory();
    ReadAgain();
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectMonitor, FailedAttemptBeforeTheEndOfTheMemoryIsNoOutcome)
{
    Punches(1);
    component.record_failures = {"", "99,Time Out"};
    form.open();
    WholeMemory();
    ReadAgain();
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 3U);
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectMonitor, FewerRecordsThanDeclaredAreTold)
{
    Punches(5);
    component.told_records = 23;
    Read();
    EXPECT_EQ(Lines().size(), 5);
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: la lista può non essere completa"));
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(pc.dialog.told[0].informative.contains(QStringLiteral("meno timbrature")));
}

TEST_F(ObjectMonitor, NoAttemptAsksForNoRecord)
{
    Punches(3);
    Controls().Tentativi->setText(QStringLiteral("0"));
    Read();
    EXPECT_TRUE(component.CallsOf("GetRecord").empty());
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: i tentativi sono 0"));
}

TEST_F(ObjectMonitor, PercentageIsOfTheRecordsToRead)
{
    Punches(3);
    component.told_records = 4;
    Read();
    EXPECT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 3 75%"));
}

TEST_F(ObjectMonitor, FailedRecordIsAskedForAgain)
{
    Punches(2);
    component.record_failures = {"", "99,Time Out", "21,Errore linea"};
    Read();
    EXPECT_EQ(component.CallsOf("GetRecord"), (Calls{"GetRecord(4, 6, 1)", "GetRecord(4, 6, 2)",
                                                     "GetRecord(4, 6, 2)", "GetRecord(4, 6, 2)"}));
    EXPECT_EQ(Lines().size(), 2);
    EXPECT_EQ(Told(), ReceptionOk());
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectMonitor, RecordThatFailsToTheLastEndsTheReading)
{
    Punches(5);
    component.record_failures = {"", "21,Errore linea", "21,Errore linea", "21,Errore linea"};
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 4U);
    EXPECT_EQ(Outcome(), QStringLiteral("Errore: 21,Errore linea"));
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore: 21,Errore linea"));
    EXPECT_EQ(Told(), QStringList{QStringLiteral("Comunicazione|Errore: 21,Errore linea")});
    EXPECT_EQ(Lines().size(), 1);
    EXPECT_EQ(Listing(), ListAsFile());
}

TEST_F(ObjectMonitor, NumberThatIsRefusedIsTold)
{
    component.number_failure = "99,Time Out";
    Read();
    EXPECT_EQ(Told(), QStringList{QStringLiteral("Comunicazione|Errore = 99,Time Out")});
    EXPECT_TRUE(component.CallsOf("GetRecord").empty());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
}

TEST_F(ObjectMonitor, EmptyMemoryIsShownWithoutABoxAndEmptiesTheListing)
{
    {
        QFile earlier(FileName());
        ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
        earlier.write("0001 of another terminal\r\n");
    }
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Label("LabelTransazioni"), QStringLiteral("Transazioni Presenti:0"));
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_EQ(Listing(), QByteArray());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
}

TEST_F(ObjectMonitor, ListingThatCannotBeMadeIsTheOutcome)
{
    ASSERT_TRUE(QDir().mkdir(FileName()));
    for (const int punches : {0, 3}) {
        Punches(punches);
        form.open();
        WantFile();
        ReadAgain();
        EXPECT_TRUE(component.CallsOf("GetRecord").empty());
        ExpectListingIs("non scritto");
        form.close();
    }
}

TEST_F(ObjectMonitor, ListingThatIsNotWholeIsTheOutcome)
{
    Punches(60);
    form.open();
    WantFile();
    {
        const FileSizeLimit full_disk(1000);
        ReadAgain();
    }
    EXPECT_EQ(Lines().size(), 60);
    ExpectListingIs("non completo");
}

TEST_F(ObjectMonitor, NumberReadBeforeIsGoneWhenTheTerminalCannotBePrepared)
{
    Punches(2);
    Read();
    ASSERT_EQ(Label("LabelScaricate"), QStringLiteral("Transazioni Acquisite: 2 100%"));
    state.Component.reset();
    ReadAgain();
    EXPECT_EQ(Label("LabelScaricate"), QString());
    EXPECT_EQ(Label("LabelTransazioni"), QString());
}

TEST_F(ObjectMonitor, NonsensicalNumbersAreReadAsFarAsARecordCanBeNamed)
{
    component.told_records = -5;
    Read();
    EXPECT_TRUE(component.CallsOf("GetRecord").empty());
    Punches(1);
    component.told_records = 100000;
    ReadAgain();
    EXPECT_EQ(component.CallsOf("GetRecord").size(), 2U);
}

TEST_F(ObjectMonitor, EscapeStopsBetweenRecordsAndTheListingIsWhole)
{
    Punches(10);
    pc.dialog.answer_yes = true;
    component.on_call = [this](const std::string& call) {
        if (call == "GetRecord(4, 6, 4)") pc.escape.pressed = true;
    };
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Lines().size(), 4);
    EXPECT_EQ(Listing(), ListAsFile());
    EXPECT_TRUE(Told().isEmpty());
    EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Lettura interrotta"));
}

TEST_F(ObjectMonitor, ThrowingComponentEndsTheReadingNotTheProgram)
{
    for (const char* call : {"GetNumber(4, 7)", "GetRecord(4, 6, 2)"}) {
        Punches(3);
        pc.dialog.told.clear();
        component.on_call = [call](const std::string& made) {
            if (made == call) throw std::runtime_error("guasto");
        };
        Read();
        EXPECT_EQ(Label("EsitoMonitor"), QStringLiteral("Errore del componente: guasto")) << call;
        EXPECT_EQ(Told(),
                  QStringList{QStringLiteral("Comunicazione|Errore del componente: guasto")});
        EXPECT_TRUE(Button("cmdMonitor").isEnabled());
        form.close();
    }
}

TEST_F(ObjectMonitor, TerminalsDelayComesBeforeTheFirstRecordAndBeforeEachRepetition)
{
    state.TerminalTable[kTerminal - 1].Ritardo = 0.9F;
    RegisterObject("Orlo");
    Punches(3);
    component.record_failures = {"", "", "99,Time Out"};
    std::vector<std::pair<std::string, long>> calls;
    long before = 0;
    component.on_call = [&](const std::string& call) {
        const long now = static_cast<long>(pc.clock.Passed().count());
        calls.emplace_back(call, now - before);
        before = now;
    };
    Read();
    const struct {
        const char* call;
        bool waits;
    } expected[] = {{"GetNumber(4, 7)", true},
                    {"GetRecord(4, 6, 1)", true},
                    {"GetRecord(4, 6, 2)", false},
                    {"GetRecord(4, 6, 3)", false},
                    {"GetRecord(4, 6, 3)", true}};
    ASSERT_EQ(calls.size(), 1 + std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(calls[i + 1].first, expected[i].call);
        if (expected[i].waits)
            EXPECT_GE(calls[i + 1].second, 900) << expected[i].call;
        else
            EXPECT_EQ(calls[i + 1].second, 0) << expected[i].call;
    }
}

TEST_F(ObjectMonitor, ModemOfAnOrloHangsUpBeforeTheOperatorIsTold)
{
    Punches(1);
    Controls().CheckModem->setChecked(true);
    component.received_texts = {"CONNECT"};
    Read();
    EXPECT_EQ(component.calls.back(), "DTR(true)");
    EXPECT_EQ(Told(), ReceptionOk());
}

TEST_F(ObjectMonitor, ControlCharactersOfTheComponentBreakNoLine)
{
    Punches(1);
    component.records[0].IdNumber = "12\r\n34";
    form.open();
    WantFile();
    ReadAgain();
    EXPECT_EQ(Lines().constFirst().mid(8, 6), QStringLiteral("12  34"));
    EXPECT_EQ(Listing().count('\n'), 1);
}

TEST_F(ObjectMonitor, MissingComponentIsTheOutcome)
{
    state.Component.reset();
    Read();
    EXPECT_EQ(Label("EsitoMonitor"),
              QStringLiteral("Errore: il componente per Orlo non è disponibile."));
    EXPECT_TRUE(Told().isEmpty());
}

}  // namespace
}  // namespace orlo::testing
