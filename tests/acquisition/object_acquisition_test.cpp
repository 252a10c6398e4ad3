#include "tests/acquisition/object_acquisition_fixture.h"

namespace orlo
{
namespace
{

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ObjectAcquisition : public testing::ObjectAcquisitionTest
{
};

TEST_F(ObjectAcquisition, EmptiesTheTerminalRecordByRecord)
{
    Punches({"11", "22"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchFile(),
              "31200603150830000100000000110004\r\n"
              "31200603150830000100000000220004\r\n");
    EXPECT_EQ(component.Marked(), 2);
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_EQ(Outcome(), QString());
    EXPECT_EQ(Controls().PanelTentativi->text(), QString());
}

class ObjectModel : public ObjectAcquisition, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ObjectModel, CallsTheComponentInThisOrder)
{
    RegisterObject(GetParam());
    Punches({"11", "22"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(component.calls, ElementsAre("OpenComunication(1, 9600)", "GetRecordsInfo(4, 7)",
                                             "GetRecordsInfo(4, 7)", "GetNextRecord(4, \"7\")",
                                             "SetAsDeleted()", "GetNextRecord(4, \"7\")",
                                             "SetAsDeleted()", "GetNextRecord(4, \"7\")"));
}

INSTANTIATE_TEST_SUITE_P(Both, ObjectModel, ::testing::Values("Orlo", "Sipa"));

TEST_F(ObjectAcquisition, CapacityAndFreePlacesAreShown)
{
    Punches({"1"});
    component.max_records = 10000;
    component.free_records = 9500;
    Acquire();
    EXPECT_EQ(Controls().PannelloCapacita->text(), QStringLiteral("10000"));
    EXPECT_EQ(Controls().PannelloFree->text(), QStringLiteral("9500"));
}

TEST_F(ObjectAcquisition, CountersFollowEveryRecord)
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
    EXPECT_EQ(shown.join(u' '), QStringLiteral("300/200 301/199 302/198 303/197"));
}

TEST_F(ObjectAcquisition, ProgressFallsTowardsZero)
{
    Punches({"1", "2", "3", "4"});
    std::vector<int> shown;
    QObject::connect(Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window,
                     [&](int value) { shown.push_back(value); });
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(shown, ElementsAre(75, 50, 25, 0));
}

TEST_F(ObjectAcquisition, ProgressIsEmptyBehindAnAcquisitionThatFailed)
{
    Punches({"1", "2"});
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") component.failing_fetches.assign(3, "99,Time Out");
    };
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 0);
}

TEST_F(ObjectAcquisition, GoodOutcomeSaysHowManyPunchesAndTheirFile)
{
    Punches({"1", "2", "3"});
    EXPECT_EQ(LastCommand(), QStringLiteral("Prova, terminale 4: Comunicazione OK, 3 timbrature in "
                                            "TIMBRAT.TXT"));
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

TEST_F(ObjectAcquisition, NothingIsSaidToGoOnWhileTheBoxSaysThatThereIsNothing)
{
    ExpectNothingToGoOnInTheBox();
}

TEST_F(ObjectAcquisition, FewerThanNoneToAcquireIsToldLikeNone)
{
    Punches({"1"});
    component.free_records = 1200;
    EXPECT_TRUE(Acquire().done);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].text, QStringLiteral("Nessuna Timbratura Da Acquisire"));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
    EXPECT_FALSE(QFile::exists(Controls().NomeFile->text()));
}

TEST_F(ObjectAcquisition, MoreRecordsThanSixteenBitsCountAreAcquiredToTheLast)
{
    constexpr int kRecords = 32'771;
    testing::FakeRecord access;
    access.Type = "Accessi";
    component.max_records = 40'000;
    component.records.assign(kRecords, access);
    component.records.front() = component.records.back() = testing::FakeRecord();
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(kRecords + 1));
    EXPECT_THAT(PunchLines(), SizeIs(2));
    EXPECT_TRUE(component.records.back().Deleted);
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("32769"));
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

TEST_F(ObjectAcquisition, ACallThatIsEndedIsTheReasonAndNothingIsAsked)
{
    Punches({"1"});
    Controls().CheckModem->setChecked(true);
    pc.dialog.answer_yes = true;
    component.on_call = [this](const std::string& call) {
        if (!call.starts_with("ReceiveString")) return;
        pc.clock.Advance(std::chrono::seconds{1});
        pc.escape.pressed = true;
    };
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Chiamata interrotta."));
    EXPECT_THAT(component.CallsOf("GetRecordsInfo"), IsEmpty());
    EXPECT_EQ(component.calls.back(), "DTR(true)");
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(ObjectAcquisition, ModemOfASipaIsNotPulsed)
{
    RegisterObject("Sipa");
    Punches({"1"});
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    EXPECT_TRUE(Acquire().done);
    EXPECT_THAT(component.CallsOf("DTR"), IsEmpty());
}

}  // namespace
}  // namespace orlo
