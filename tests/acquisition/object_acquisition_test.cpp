#include "tests/acquisition/acquisition_fixture.h"
#include "tests/support/fake_component.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace orlo
{
namespace
{

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using testing::FakeRecord;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Terminal 4 is an Orlo behind a component in memory.
class ObjectAcquisition : public testing::AcquisitionTest
{
protected:
    testing::FakeComponent component;

    void SetUp() override
    {
        AcquisitionTest::SetUp();
        state.Component = component.Make();
        Connect("Orlo");
    }

    void Connect(const char* model)
    {
        TerminalRecord& slot = state.TerminalTable[kTerminal - 1];
        slot.Priorita = 7;
        slot.PrioritaSecondaria = 6;
        Register(model, /*retries=*/3);
        window.SelectTerminalLine(window.Controls().ListaTerminali->count() - 1);
    }

    void Punches(std::initializer_list<const char*> badges)
    {
        for (const char* badge : badges) {
            FakeRecord record;
            record.IdNumber = badge;
            component.records.push_back(record);
        }
    }
    FakeRecord& Last() { return component.records.back(); }

    void Throw(const char* member)
    {
        component.on_call = [member](const std::string& call) {
            if (call.starts_with(member)) throw std::runtime_error("guasto");
        };
    }

    /// Badges of the punch file's lines, in order.
    QStringList Badges() const
    {
        QStringList badges;
        for (const QByteArray& punch : PunchLines())
            badges << QString::fromLatin1(punch.mid(18, 10));
        return badges;
    }
    const Ui::Contenitore& Controls() const { return window.Controls(); }
    void ExpectCritical(const QString& text) const
    {
        ASSERT_THAT(pc.dialog.told, SizeIs(1));
        EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
        EXPECT_EQ(pc.dialog.told[0].title, QStringLiteral("Attenzione"));
        EXPECT_EQ(pc.dialog.told[0].text, text);
    }
};

TEST_F(ObjectAcquisition, EmptiesTheTerminalRecordByRecord)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        QFile::remove(Controls().NomeFile->text());
        component.records.clear();
        component.calls.clear();
        state.Component = component.Make();
        state.TelegramLinkOpen = false;
        Connect(model);
        Punches({"11", "22"});
        const AcquisitionOutcome outcome = Acquire();
        EXPECT_TRUE(outcome.done) << outcome.reason.toStdString();
        EXPECT_THAT(
            component.calls,
            ElementsAre("OpenComunication(1, 9600)", "GetRecordsInfo(4, 7)", "GetRecordsInfo(4, 7)",
                        "GetNextRecord(4, \"7\")", "SetAsDeleted()", "GetNextRecord(4, \"7\")",
                        "SetAsDeleted()", "GetNextRecord(4, \"7\")"))
            << model;
        EXPECT_EQ(PunchFile(),
                  "31200603150830000100000000110004\r\n"
                  "31200603150830000100000000220004\r\n");
        EXPECT_EQ(component.Marked(), 2);
        EXPECT_THAT(pc.dialog.told, IsEmpty());
        EXPECT_EQ(Outcome(), QString());
        EXPECT_EQ(Controls().PanelTentativi->text(), QString());
    }
}

TEST_F(ObjectAcquisition, CountersAreShownAndFollowEveryRecord)
{
    Punches({"1", "2", "3"});
    component.max_records = 10000;
    component.free_records = 9500;
    component.trasmitted_records = 300;
    QStringList shown;
    component.on_call = [&](const std::string& call) {
        if (call.starts_with("GetNextRecord"))
            shown << Controls().PannelloTimbrature->text() + u'/' +
                         Controls().PannelloAcquisire->text();
    };
    EXPECT_FALSE(Acquire().done) << "it declared 200 and delivered 3";
    EXPECT_EQ(Controls().PannelloCapacita->text(), QStringLiteral("10000"));
    EXPECT_EQ(Controls().PannelloFree->text(), QStringLiteral("9500"));
    EXPECT_EQ(shown.join(u' '), QStringLiteral("300/200 301/199 302/198 303/197"));
}

TEST_F(ObjectAcquisition, CountersHaveChangedBeforeTheRecordIsMarked)
{
    Punches({"1"});
    QString at_mark;
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") at_mark = Controls().PannelloTimbrature->text();
    };
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(at_mark, QStringLiteral("1"));
}

TEST_F(ObjectAcquisition, LineIsOnTheDiskBeforeTheRecordIsMarked)
{
    Punches({"1", "2"});
    std::vector<qsizetype> lines_at_mark;
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") lines_at_mark.push_back(PunchLines().size());
    };
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(lines_at_mark, ElementsAre(1, 2));
}

TEST_F(ObjectAcquisition, NothingToAcquireIsToldAndCountsAsDone)
{
    Punches({"1"});
    Last().Deleted = true;
    EXPECT_TRUE(Acquire().done);
    ASSERT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Information);
    EXPECT_EQ(pc.dialog.told[0].title, QStringLiteral("Orlo Desk"));
    EXPECT_EQ(pc.dialog.told[0].text, QStringLiteral("Nessuna Timbratura Da Acquisire"));
    EXPECT_THAT(component.CallsOf("GetRecordsInfo"), SizeIs(1)) << "nothing is shown";
    EXPECT_FALSE(QFile::exists(Controls().NomeFile->text())) << "nor is the file made";
}

TEST_F(ObjectAcquisition, RefusedStatusEndsTheAcquisition)
{
    Punches({"1"});
    component.records_info = {"99,Time Out"};
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore:99,Time Out"));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore:99,Time Out"));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_FALSE(QFile::exists(Controls().NomeFile->text()));
}

TEST_F(ObjectAcquisition, SecondStatusRefusedIsShownAndTheRecordsAreFetchedAllTheSame)
{
    Punches({"1"});
    component.records_info = {"", "21,Errore linea"};
    EXPECT_FALSE(Acquire().done) << "nothing has told how many are left";
    EXPECT_EQ(Outcome(), QStringLiteral("Errore:21,Errore linea"));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
}

TEST_F(ObjectAcquisition, ErOnTheFirstRequestEndsWithoutAMessage)
{
    Punches({"1"});
    component.failing_fetches = {"ER"};
    Controls().PannelloPercentuale->setValue(55);
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_EQ(Outcome(), QString());
    EXPECT_EQ(Controls().PanelTentativi->text(), QString());
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 55) << "the bar is not touched";
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Il terminale dichiarava 1 timbrature da acquisire e "
                                             "ne ha consegnate 0."));
}

TEST_F(ObjectAcquisition, TimeOutIsTriedAgainWithoutACaption)
{
    Punches({"1"});
    component.failing_fetches = {"99,Time Out", "99,Time Out"};
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Outcome(), QString());
    EXPECT_EQ(Controls().PanelTentativi->text(), QStringLiteral("3"));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
}

TEST_F(ObjectAcquisition, OtherErrorsAreShownAndTriedAgain)
{
    Punches({"1"});
    component.failing_fetches = {"21,Errore linea"};
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Outcome(), QStringLiteral("21,Errore linea"));
    EXPECT_EQ(Controls().PanelTentativi->text(), QStringLiteral("2"));
}

TEST_F(ObjectAcquisition, AttemptsUsedUpEndTheAcquisition)
{
    Punches({"1", "2"});
    component.failing_fetches.assign(3, "99,Time Out");
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore:99,Time Out"));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(3));
    EXPECT_EQ(Controls().PanelTentativi->text(), QStringLiteral("4"));
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(ObjectAcquisition, LastErrorIsCutToFiftyCharacters)
{
    Punches({"1"});
    component.failing_fetches.assign(3, std::string(60, 'x'));
    EXPECT_EQ(Acquire().reason, QStringLiteral("Errore:") + QString(50, u'x'));
    EXPECT_EQ(Outcome(), QString(60, u'x'));
}

TEST_F(ObjectAcquisition, AttemptsBeginAgainWithEachRecord)
{
    Punches({"1", "2"});
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") component.failing_fetches.assign(2, "99,Time Out");
    };
    component.failing_fetches.assign(2, "99,Time Out");
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_TRUE(outcome.done) << outcome.reason.toStdString();
    EXPECT_THAT(Badges(), SizeIs(2));
}

TEST_F(ObjectAcquisition, ZeroAttemptsFetchNothingAndEmptyTheBar)
{
    Punches({"1"});
    Controls().Tentativi->setText(QStringLiteral("0"));
    Controls().PannelloPercentuale->setValue(55);
    EXPECT_EQ(Acquire().reason, QStringLiteral("Il numero di tentativi è 0."));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 0);
}

TEST_F(ObjectAcquisition, PriorityIsWhatTheFieldHoldsAtThatMoment)
{
    Punches({"1", "2"});
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") Controls().Priorita->setText(QStringLiteral("x 9"));
    };
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"),
                ElementsAre("GetNextRecord(4, \"7\")", "GetNextRecord(4, \"x 9\")",
                            "GetNextRecord(4, \"x 9\")"));
}

TEST_F(ObjectAcquisition, TerminalsDelayComesBeforeEveryTransfer)
{
    Punches({"1"});
    state.TerminalTable[kTerminal - 1].Ritardo = 2.0F;
    std::vector<std::int64_t> seconds;
    component.on_call = [&](const std::string& call) {
        if (call.starts_with("Get")) seconds.push_back((pc.clock.Passed() + 30ms) / 1s);
    };
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(seconds, ElementsAre(2, 4, 6, 8)) << "two statuses, a record, the end";
}

TEST_F(ObjectAcquisition, StandardLayoutWhateverTheDatabaseSays)
{
    Punches({"1"});
    state.Database = jet::Database::Open(ORLO_TEST_DATA "/nimbo-full-2000.mdb");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(state.TipoTracciato, 1);
    EXPECT_EQ(PunchFile(), "31200603150830000100000000010004\r\n");
}

TEST_F(ObjectAcquisition, AccessRecordsAreNeitherWrittenNorCountedNorMarked)
{
    Punches({"1", "2", "3"});
    component.records[1].Type = "Accessi";
    component.records[0].Type = "Informazioni";
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_TRUE(outcome.done) << outcome.reason.toStdString();
    EXPECT_EQ(Badges().join(u' '), QStringLiteral("0000000001 0000000003"));
    EXPECT_FALSE(component.records[1].Deleted);
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("2"));
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("1"));
}

TEST_F(ObjectAcquisition, SkippedRecordDeliveredForEverIsStopped)
{
    Punches({"1"});
    Last().Type = "Accessi";
    component.moves_on = false;
    component.max_records = 5;
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(5 + 100 + 1));
    ExpectCritical(
        QStringLiteral("Il terminale consegna registrazioni senza fine: più di quante ne contiene "
                       "la sua memoria (5)."));
    EXPECT_EQ(outcome.reason, pc.dialog.told[0].text);
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(ObjectAcquisition, NonsenseCountersDoNotMakeItEndless)
{
    Punches({"1"});
    Last().Type = "Accessi";
    component.moves_on = false;
    component.max_records = -2'000'000'000;
    component.free_records = -2'000'000'000;
    component.trasmitted_records = -2'147'483'648;
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(101));
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("32767"));
}

TEST_F(ObjectAcquisition, CountingOnFromTheLargestNumberIsNoHarm)
{
    Punches({"1"});
    component.max_records = 2'147'483'647;
    component.trasmitted_records = 2'147'483'647;
    component.free_records = -1;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("2147483648"));
}

TEST_F(ObjectAcquisition, OverlongBadgeIsToldAndStaysInTheTerminal)
{
    Punches({"1", "12345678901", "3"});
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    ExpectCritical(QStringLiteral(
        "Il terminale ha consegnato una timbratura che non si può scrivere (badge di 11 caratteri, "
        "al massimo 10): resta nel terminale, e l'acquisizione si ferma."));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
    EXPECT_FALSE(component.records[1].Deleted);
    EXPECT_FALSE(component.records[2].Deleted);
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("1"));
}

TEST_F(ObjectAcquisition, MarkThatTheTerminalDoesNotTakeIsToldAndTheRecordComesAgain)
{
    Punches({"1", "2"});
    component.takes_marks = false;
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    ExpectCritical(QStringLiteral(
        "Una timbratura è stata scritta nel file, ma il terminale non l'ha segnata come "
        "acquisita: la prossima acquisizione la scriverà di nuovo."));
    EXPECT_EQ(pc.dialog.told[0].informative, QStringLiteral("Errore:99,Time Out"));
    EXPECT_THAT(component.CallsOf("SetAsDeleted"), SizeIs(1));
    EXPECT_THAT(Badges(), SizeIs(1));

    component.takes_marks = true;
    state.Component = component.Make();
    state.TelegramLinkOpen = false;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Badges().join(u' '), QStringLiteral("0000000001 0000000001 0000000002"))
        << "twice rather than never";
}

TEST_F(ObjectAcquisition, MarkThatThrowsIsToldLikeOneThatFailed)
{
    Punches({"1"});
    Throw("SetAsDeleted");
    EXPECT_FALSE(Acquire().done);
    ASSERT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_EQ(pc.dialog.told[0].informative, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto"));
    EXPECT_THAT(Badges(), SizeIs(1));
}

TEST_F(ObjectAcquisition, ComponentThatThrowsEndsTheCommandAsNotDone)
{
    Punches({"1"});
    for (const char* member : {"OpenComunication", "GetRecordsInfo", "GetNextRecord"}) {
        Throw(member);
        const AcquisitionOutcome outcome = Acquire();
        EXPECT_FALSE(outcome.done) << member;
        EXPECT_EQ(outcome.reason, QStringLiteral("Errore del componente: guasto")) << member;
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << member;
    }
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_EQ(component.Marked(), 0);
}

TEST_F(ObjectAcquisition, MissingComponentIsSaidAndNothingIsCalled)
{
    state.Component.reset();
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore: il componente per Orlo non è disponibile."));
    EXPECT_EQ(Outcome(), outcome.reason);
    EXPECT_THAT(component.calls, IsEmpty());
    EXPECT_FALSE(QFile::exists(Controls().NomeFile->text()));
}

TEST_F(ObjectAcquisition, EscapeBeforeTheLoopFetchesNothing)
{
    Punches({"1"});
    pc.escape.pressed = true;
    pc.dialog.answer_yes = true;
    EXPECT_EQ(Acquire().reason, QStringLiteral("Acquisizione interrotta."));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(ObjectAcquisition, EscapeStopsBetweenTwoRecords)
{
    Punches({"1", "2", "3"});
    pc.dialog.answer_yes = true;
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") pc.escape.pressed = true;
    };
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
    EXPECT_EQ(component.Marked(), 1) << "what is stored is marked";
}

TEST_F(ObjectAcquisition, EscapeAnsweredNoGoesOn)
{
    Punches({"1"});
    pc.escape.pressed = true;
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(pc.dialog.asked, SizeIs(1));
}

TEST_F(ObjectAcquisition, ModemOfAnOrloIsDialledAndHungUp)
{
    Punches({"1"});
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    Controls().NumeroTelefono->setText(QStringLiteral(" 0123 "));
    Controls().CodiceImpianto->setText(QStringLiteral("15"));
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(
        component.calls,
        ElementsAre("OpenComunication(1, 9600)", "SendString(\"ATD0123\r\")",
                    "ReceiveString(1000, true)", "SendTelegram(4, 7, \"@@,15\", \"\")",
                    "GetRecordsInfo(4, 7)", "GetRecordsInfo(4, 7)", "GetNextRecord(4, \"7\")",
                    "SetAsDeleted()", "GetNextRecord(4, \"7\")", "DTR(false)", "DTR(true)"));
}

TEST_F(ObjectAcquisition, ModemOfAnOrloIsHungUpAlsoBehindAFailure)
{
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    Throw("GetRecordsInfo");
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(component.CallsOf("DTR"), ElementsAre("DTR(false)", "DTR(true)"));
}

TEST_F(ObjectAcquisition, HangingUpThatThrowsIsNotDone)
{
    Punches({"1"});
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    Throw("DTR");
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(component.Marked(), 1);
}

TEST_F(ObjectAcquisition, ModemOfASipaIsNotPulsed)
{
    Connect("Sipa");
    Punches({"1"});
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(component.CallsOf("DTR"), IsEmpty());
}

TEST_F(ObjectAcquisition, SilentModemIsToldAndTheTerminalAskedAllTheSame)
{
    component.records_info = {"99,Time Out"};
    Controls().CheckModem->setChecked(true);
    EXPECT_EQ(Acquire().reason, QStringLiteral("Errore:99,Time Out"));
    ExpectCritical(QStringLiteral("Il Modem non risponde"));
}

TEST_F(ObjectAcquisition, FileThatCannotBeOpenedIsToldAndNothingFetched)
{
    Punches({"1"});
    Controls().NomeFile->setText(folder.filePath(QStringLiteral("no/TIMBRAT.TXT")));
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
}

TEST_F(ObjectAcquisition, FileWithdrawnInTheMiddleLeavesTheRecordUnmarked)
{
    Punches({"1", "2", "3"});
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") QFile::remove(Controls().NomeFile->text());
    };
    EXPECT_FALSE(Acquire().done);
    ASSERT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_TRUE(pc.dialog.told[0].text.contains(QStringLiteral("TIMBRAT.TXT")));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore: timbrature non scritte"));
    EXPECT_EQ(component.Marked(), 1);
}

/// A disk that is full from a certain file size on.
class ObjectFullDisk : public ObjectAcquisition
{
protected:
    static void LimitFileSize(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    void TearDown() override { LimitFileSize(RLIM_INFINITY); }
};

TEST_F(ObjectFullDisk, NothingIsFetchedWithoutRoomForIt)
{
    Punches({"1", "2", "3"});
    LimitFileSize(2 * 34 + 10);
    EXPECT_FALSE(Acquire().done);
    LimitFileSize(RLIM_INFINITY);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(2));
    EXPECT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_THAT(Badges(), SizeIs(2));
    EXPECT_EQ(component.Marked(), 2);
}

TEST_F(ObjectFullDisk, LineThatCannotBeWrittenIsCutBackAndNotMarked)
{
    Punches({"1", "2", "3"});
    component.on_call = [&](const std::string& call) {
        if (call.starts_with("GetNext") && component.Marked() == 1) LimitFileSize(34 + 20);
    };
    EXPECT_FALSE(Acquire().done);
    LimitFileSize(RLIM_INFINITY);
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")}) << "no part of the second";
    EXPECT_EQ(component.Marked(), 1);

    component.on_call = {};
    state.Component = component.Make();
    state.TelegramLinkOpen = false;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Badges().join(u' '), QStringLiteral("0000000001 0000000002 0000000003"));
}

}  // namespace
}  // namespace orlo
