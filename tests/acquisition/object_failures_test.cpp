#include "tests/acquisition/object_acquisition_fixture.h"
#include "tests/support/file_size_limit.h"

namespace orlo
{
namespace
{

using testing::LimitFileSize;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ObjectFailure : public testing::ObjectAcquisitionTest
{
};

TEST_F(ObjectFailure, RefusedStatusEndsTheAcquisition)
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

TEST_F(ObjectFailure, SecondStatusRefusedIsShownAndTheRecordsAreFetchedAllTheSame)
{
    Punches({"1"});
    component.records_info = {"", "21,Errore linea"};
    EXPECT_FALSE(Acquire().done) << "nothing has told how many are left";
    EXPECT_EQ(Outcome(), QStringLiteral("Errore:21,Errore linea"));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
}

TEST_F(ObjectFailure, ErOnTheFirstRequestEndsWithoutAMessage)
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

TEST_F(ObjectFailure, TimeOutIsTriedAgainWithoutACaption)
{
    Punches({"1"});
    component.failing_fetches = {"99,Time Out", "99,Time Out"};
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Outcome(), QString());
    EXPECT_EQ(Controls().PanelTentativi->text(), QStringLiteral("3"));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
}

TEST_F(ObjectFailure, OtherErrorsAreShownAndTriedAgain)
{
    Punches({"1"});
    component.failing_fetches = {"21,Errore linea"};
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Outcome(), QStringLiteral("21,Errore linea"));
    EXPECT_EQ(Controls().PanelTentativi->text(), QStringLiteral("2"));
}

TEST_F(ObjectFailure, AttemptsUsedUpEndTheAcquisition)
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

TEST_F(ObjectFailure, LastErrorIsCutToFiftyCharacters)
{
    Punches({"1"});
    component.failing_fetches.assign(3, std::string(60, 'x'));
    EXPECT_EQ(Acquire().reason, QStringLiteral("Errore:") + QString(50, u'x'));
    EXPECT_EQ(Outcome(), QString(60, u'x'));
}

TEST_F(ObjectFailure, AttemptsBeginAgainWithEachRecord)
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

TEST_F(ObjectFailure, ZeroAttemptsFetchNothingAndEmptyTheBar)
{
    Punches({"1"});
    Controls().Tentativi->setText(QStringLiteral("0"));
    Controls().PannelloPercentuale->setValue(55);
    EXPECT_EQ(Acquire().reason, QStringLiteral("Il numero di tentativi è 0."));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
    EXPECT_EQ(Controls().PannelloPercentuale->value(), 0);
}

TEST_F(ObjectFailure, SkippedRecordDeliveredForEverIsStopped)
{
    Punches({"1"});
    Last().Type = "Accessi";
    component.moves_on = false;
    component.max_records = 5;
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(5 + 100 + 1));
    ASSERT_EQ(
        CriticalBox(),
        QStringLiteral(
            "Attenzione|Il terminale consegna registrazioni senza fine: più di quante ne contiene "
            "la sua memoria (5)."));
    EXPECT_EQ(outcome.reason, pc.dialog.told[0].text);
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(ObjectFailure, NonsenseCountersDoNotMakeItEndless)
{
    Punches({"1"});
    Last().Type = "Accessi";
    component.moves_on = false;
    component.max_records = -2'000'000'000;
    component.free_records = -2'000'000'000;
    component.trasmitted_records = -2'147'483'648;
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(101));
    EXPECT_EQ(Controls().PannelloAcquisire->text(), QStringLiteral("2147483648"));
}

TEST_F(ObjectFailure, CountOfMoreThanSixteenBitsIsHeldAgainstWhatCame)
{
    Punches({"1", "2"});
    component.max_records = 100'000;
    component.free_records = 0;
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason,
              QStringLiteral("Il terminale dichiarava 32767 timbrature da acquisire e ne ha "
                             "consegnate 2."));
    EXPECT_EQ(component.Marked(), 2);
}

TEST_F(ObjectFailure, CountingOnFromTheLargestNumberIsNoHarm)
{
    Punches({"1"});
    component.max_records = 2'147'483'647;
    component.trasmitted_records = 2'147'483'647;
    component.free_records = -1;
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("2147483648"));
}

TEST_F(ObjectFailure, OverlongBadgeIsToldAndStaysInTheTerminal)
{
    Punches({"1", "12345678901", "3"});
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    ASSERT_EQ(CriticalBox(),
              QStringLiteral("Attenzione|Il terminale ha consegnato una timbratura che non si può "
                             "scrivere (badge di 11 caratteri, "
                             "al massimo 10): resta nel terminale, e l'acquisizione si ferma."));
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")});
    EXPECT_FALSE(component.records[1].Deleted);
    EXPECT_FALSE(component.records[2].Deleted);
    EXPECT_EQ(Controls().PannelloTimbrature->text(), QStringLiteral("1"));
}

TEST_F(ObjectFailure, MarkThatTheTerminalDoesNotTakeIsToldAndTheRecordComesAgain)
{
    Punches({"1", "2"});
    component.takes_marks = false;
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    ASSERT_EQ(CriticalBox(),
              QStringLiteral("Attenzione|Una timbratura è stata scritta nel file, ma il terminale "
                             "non l'ha segnata come "
                             "acquisita: la prossima acquisizione la scriverà di nuovo."));
    EXPECT_EQ(pc.dialog.told[0].informative, QStringLiteral("Errore:99,Time Out"));
    EXPECT_THAT(component.CallsOf("SetAsDeleted"), SizeIs(1));
    EXPECT_THAT(Badges(), SizeIs(1));

    component.takes_marks = true;
    Restart();
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Badges().join(u' '), QStringLiteral("0000000001 0000000001 0000000002"))
        << "twice rather than never";
}

TEST_F(ObjectFailure, MarkThatThrowsIsToldLikeOneThatFailed)
{
    Punches({"1"});
    Throw("SetAsDeleted");
    EXPECT_FALSE(Acquire().done);
    ASSERT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_EQ(pc.dialog.told[0].informative, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto"));
    EXPECT_THAT(Badges(), SizeIs(1));
}

class ObjectThrows : public ObjectFailure, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ObjectThrows, AndTheCommandEndsAsNotDone)
{
    Punches({"1"});
    Throw(GetParam());
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(Outcome(), outcome.reason);
    EXPECT_THAT(pc.dialog.told, IsEmpty());
    EXPECT_EQ(component.Marked(), 0);
}

INSTANTIATE_TEST_SUITE_P(Members, ObjectThrows,
                         ::testing::Values("OpenComunication", "GetRecordsInfo", "GetNextRecord"));

TEST_F(ObjectFailure, MissingComponentIsSaidAndNothingIsCalled)
{
    state.Component.reset();
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Errore: il componente per Orlo non è disponibile."));
    EXPECT_EQ(Outcome(), outcome.reason);
    EXPECT_THAT(component.calls, IsEmpty());
    EXPECT_FALSE(QFile::exists(Controls().NomeFile->text()));
}

TEST_F(ObjectFailure, ModemOfAnOrloIsHungUpAlsoBehindAFailure)
{
    component.received_texts = {"CONNECT"};
    Controls().CheckModem->setChecked(true);
    Throw("GetRecordsInfo");
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(component.CallsOf("DTR"), ElementsAre("DTR(false)", "DTR(true)"));
}

TEST_F(ObjectFailure, HangingUpThatThrowsIsNotDone)
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

TEST_F(ObjectFailure, SilentModemIsToldAndTheTerminalAskedAllTheSame)
{
    component.records_info = {"99,Time Out"};
    Controls().CheckModem->setChecked(true);
    EXPECT_EQ(Acquire().reason, QStringLiteral("Errore:99,Time Out"));
    EXPECT_EQ(CriticalBox(), QStringLiteral("Attenzione|Il Modem non risponde"));
}

TEST_F(ObjectFailure, FileThatCannotBeOpenedIsToldAndNothingFetched)
{
    Punches({"1"});
    Controls().NomeFile->setText(folder.filePath(QStringLiteral("no/TIMBRAT.TXT")));
    EXPECT_FALSE(Acquire().done);
    EXPECT_THAT(pc.dialog.told, SizeIs(1));
    EXPECT_THAT(component.CallsOf("GetNextRecord"), IsEmpty());
}

TEST_F(ObjectFailure, FileWithdrawnInTheMiddleLeavesTheRecordUnmarked)
{
    Punches({"1", "2", "3"});
    component.on_call = [&](const std::string& call) {
        if (call == "SetAsDeleted()") QFile::remove(Controls().NomeFile->text());
    };
    Acquire();
    EXPECT_TRUE(CriticalBox().contains(QStringLiteral("TIMBRAT.TXT")));
    EXPECT_EQ(Outcome(), QStringLiteral("Errore: timbrature non scritte"));
    EXPECT_EQ(component.Marked(), 1);
}

/// A disk that is full from a certain file size on.
class ObjectFullDisk : public testing::ObjectAcquisitionTest
{
protected:
    void TearDown() override { LimitFileSize(RLIM_INFINITY); }

    /// The room runs out while the second record, for which it was there, is on its way.
    void AcquireUntilTheDiskIsFull()
    {
        Punches({"1", "2", "3"});
        component.on_call = [&](const std::string& call) {
            if (call.starts_with("GetNext") && component.Marked() == 1) LimitFileSize(34 + 20);
        };
        EXPECT_FALSE(Acquire().done);
        LimitFileSize(RLIM_INFINITY);
    }
};

TEST_F(ObjectFullDisk, NothingIsFetchedWithoutRoomForIt)
{
    Punches({"1", "2", "3"});
    LimitFileSize(2 * 34 + 10);
    EXPECT_FALSE(Acquire().done);
    LimitFileSize(RLIM_INFINITY);
    EXPECT_THAT(component.CallsOf("GetNextRecord"), SizeIs(2));
    EXPECT_TRUE(CriticalBox().contains(QStringLiteral("TIMBRAT.TXT")));
    EXPECT_EQ(component.Marked(), 2);
}

TEST_F(ObjectFullDisk, LineThatCannotBeWrittenIsCutBackAndNotMarked)
{
    AcquireUntilTheDiskIsFull();
    EXPECT_EQ(Badges(), QStringList{QStringLiteral("0000000001")}) << "no part of the second";
    EXPECT_EQ(component.Marked(), 1);
}

TEST_F(ObjectFullDisk, LineThatCouldNotBeWrittenIsWrittenByTheNextAcquisition)
{
    AcquireUntilTheDiskIsFull();
    Restart();
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Badges().join(u' '), QStringLiteral("0000000001 0000000002 0000000003"));
}

}  // namespace
}  // namespace orlo
