#include "tests/acquisition/acquisition_fixture.h"

namespace orlo
{
namespace
{

using namespace std::chrono_literals;

QStringList Commands(std::initializer_list<const char*> texts)
{
    QStringList commands;
    for (const char* text : texts) commands << QString::fromLatin1(text);
    return commands;
}

class Acquisizione : public testing::AcquisitionTest
{
};

TEST_F(Acquisizione, EmptiesEverySerialModel)
{
    for (const char* model : {"Orlo II", "OrloTre", "SuperStrale", "Strale N", "Lumo", "Strale"}) {
        QFile::remove(window.Controls().NomeFile->text());
        Connect(model, "timbrature=23,seme=5");
        window.SelectTerminalLine(window.Controls().ListaTerminali->count() - 1);
        EXPECT_TRUE(Acquire().done) << model;
        EXPECT_EQ(PunchLines().size(), 23) << model;
        EXPECT_EQ(Punches().ToAcquire(), 0U) << model;
        EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK")) << model;
    }
}

TEST_F(Acquisizione, NoFileNameIsToldAndNothingIsSent)
{
    Connect("Strale", "timbrature=5");
    window.Controls().NomeFile->clear();
    EXPECT_FALSE(Acquire().done);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_EQ(pc.dialog.told[0].title, QStringLiteral("Attenzione"));
    EXPECT_EQ(pc.dialog.told[0].text, QStringLiteral("Specificare il nome del File."));
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(Acquisizione, RefusalBeforeItBeginsIsTheOutcomeOfTheLastCommand)
{
    Connect("Strale", "timbrature=5");
    window.Controls().NomeFile->clear();
    window.RunCommand(window.Controls().cmdAcquisisce, QStringLiteral("Acquisizione in corso…"),
                      EscapeUse::Heeded, [this] { Acquire(); });
    EXPECT_TRUE(window.Controls().LabelUltimoComando->text().endsWith(
        QStringLiteral("Acquisizione, terminale 4: Errore: manca il nome del file")));
}

TEST_F(Acquisizione, ShowsCountersAndLeavesTheBarAtZero)
{
    Connect("Strale", "timbrature=42,acquisite=40");
    EXPECT_TRUE(Acquire().done);
    const Ui::Contenitore& controls = window.Controls();
    EXPECT_EQ(controls.PannelloCapacita->text(), QStringLiteral("2500"));
    EXPECT_EQ(controls.PannelloTimbrature->text(), QStringLiteral("42"));
    EXPECT_EQ(controls.PannelloAcquisire->text(), QStringLiteral("0"));
    EXPECT_EQ(controls.PannelloFree->text(), QString());
    EXPECT_EQ(controls.PannelloPercentuale->value(), 0);
    EXPECT_EQ(controls.PanelTentativi->text(), QString());
}

TEST_F(Acquisizione, CapacityIsTheModels)
{
    for (const auto& [model, capacity] : {std::pair{"Orlo II", "10000"},
                                          {"Strale", "2500"},
                                          {"Strale N", "7000"},
                                          {"Lumo", "10000"},
                                          {"OrloTre", "10000"},
                                          {"SuperStrale", "10000"}}) {
        Connect(model, "timbrature=0");
        window.SelectTerminalLine(window.Controls().ListaTerminali->count() - 1);
        EXPECT_TRUE(Acquire().done);
        EXPECT_EQ(window.Controls().PannelloCapacita->text(), QLatin1String(capacity)) << model;
    }
}

TEST_F(Acquisizione, ProgressFallsTowardsZero)
{
    Connect("Strale", "timbrature=40");
    std::vector<int> shown;
    QObject::connect(window.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window,
                     [&](int value) { shown.push_back(value); });
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(shown, (std::vector<int>{100, 75, 50, 25, 0}));
}

TEST_F(Acquisizione, GoodOutcomeSaysHowManyPunchesAndTheirFile)
{
    const std::pair<const char*, const char*> cases[] = {
        {"timbrature=24,acquisite=5", "19 timbrature in TIMBRAT.TXT"},
        {"timbrature=6,acquisite=5", "1 timbratura in TIMBRAT.TXT"},
        {"timbrature=5,acquisite=5", "nessuna timbratura da acquisire"}};
    for (const auto& [memory, words] : cases) {
        Connect("Strale", memory);
        window.SelectTerminalLine(window.Controls().ListaTerminali->count() - 1);
        EXPECT_EQ(LastCommand(), QStringLiteral("Prova, terminale 4: Comunicazione OK, ") +
                                     QString::fromUtf8(words));
    }
}

TEST_F(Acquisizione, EmptyMemoryIsNoMessageAndAnEmptyFile)
{
    Connect("Strale", "timbrature=5,acquisite=5");
    EXPECT_TRUE(Acquire().done);
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(PunchFile(), "");
    EXPECT_EQ(commands, QStringList{QStringLiteral("32")});
}

TEST_F(Acquisizione, SilentTerminalGetsAsManyRequestsAsAttempts)
{
    Connect("Strale", "timbrature=5", {"33*:richiesta-persa"});
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.reason, QStringLiteral("Timeout"));
    EXPECT_EQ(Transfers(), Commands({"33OK", "33NO", "33NO"}));
    EXPECT_EQ(Outcome(), QStringLiteral("Timeout"));
    EXPECT_EQ(PunchFile(), "");
}

TEST_F(Acquisizione, GoodAnswerAfterAFailedOneIsAcknowledged)
{
    Connect("Strale", "timbrature=15", {"33#1:checksum-errato"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Transfers(), Commands({"33OK", "33NO", "33OK", "33OK"}));
    EXPECT_EQ(PunchLines().size(), 15);
}

TEST_F(Acquisizione, AttemptsBeginAgainWithEachAnswer)
{
    Connect("Strale", "timbrature=15",
            {"33#1:checksum-errato", "33#2:silenzio", "33#4:silenzio", "33#5:checksum-errato"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 15);
}

TEST_F(Acquisizione, BadFramesAreShownAndCounted)
{
    Connect("Strale", "timbrature=5", {"33*:checksum-errato"});
    QStringList attempts;
    pc.clock.on_tick = [&] { attempts << window.Controls().PanelTentativi->text(); };
    EXPECT_EQ(Acquire().reason, QStringLiteral("RX Error"));
    EXPECT_EQ(Outcome(), QStringLiteral("RX Error"));
    EXPECT_EQ(Transfers().size(), 3);
}

TEST_F(Acquisizione, FirstRequestIsOkAlsoAfterAnAcquisitionThatFailed)
{
    Connect("Strale", "timbrature=5",
            {"33#1:richiesta-persa", "33#2:richiesta-persa", "33#3:richiesta-persa"});
    EXPECT_FALSE(Acquire().done);
    commands.clear();
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Transfers().first(), QStringLiteral("33OK"));
    EXPECT_EQ(PunchLines().size(), 5);
}

TEST_F(Acquisizione, RepeatedAnswerIsWrittenTwice)
{
    // The request that acknowledges the first ten is lost; "33NO" brings the same ten again.
    Connect("Strale", "timbrature=15", {"33#2:richiesta-persa"});
    EXPECT_TRUE(Acquire().done);
    const QList<QByteArray> lines = PunchLines();
    ASSERT_EQ(lines.size(), 25);
    EXPECT_EQ(lines.mid(0, 10), lines.mid(10, 10));
}

TEST_F(Acquisizione, StatusThatTimesOutKeepsTheCountAndGoesOn)
{
    Connect("Strale", "timbrature=25", {"32#2:silenzio"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 25);
}

TEST_F(Acquisizione, BadStatusFrameReadsZeroAndEndsTheAcquisition)
{
    Connect("Strale", "timbrature=25", {"32#2:checksum-errato"});
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(Outcome(), QStringLiteral("Comunicazione OK"));
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 25) << "the next acquisition acknowledges what was stored";
}

TEST_F(Acquisizione, StatusThatComesTooLateIsNotWrittenAsPunches)
{
    Connect("Strale", "timbrature=25", {"32#2:ritardo=3200"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 25);
    EXPECT_EQ(Transfers().mid(0, 3), (QStringList{QStringLiteral("33OK"), QStringLiteral("33OK"),
                                                  QStringLiteral("33NO")}));
}

TEST_F(Acquisizione, StatusThatNeverCameLeavesTheCountOfTheOneBefore)
{
    Connect("Strale", "timbrature=25", {"32#1:silenzio"});
    state.TrInMemory = "00025";
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 25);
}

TEST_F(Acquisizione, OrloTreIsDrivenByTheCorrectedCount)
{
    Connect("OrloTre", "timbrature=12");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 12);
    EXPECT_EQ(state.TrInMemory, "00000");
    EXPECT_EQ(window.Controls().PannelloTimbrature->text(), QStringLiteral("12"));
}

TEST_F(Acquisizione, DirectionsFollowTheRegisteredModelNotTheOneShown)
{
    Connect("Strale", "timbrature=1,seme=1");
    QFile punches(folder.filePath(QStringLiteral("punches.txt")));
    ASSERT_TRUE(punches.open(QIODevice::WriteOnly));
    punches.write("4 123456 0001 15/03/2006 08:30\n");
    punches.close();
    Connect("Strale", "file=" + punches.fileName().toStdString());
    window.Controls().ComboTipoTerminale->setCurrentText(QStringLiteral("Lumo"));
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines()[0].at(17), '0') << "event 4 is an exit of the Lumo only";
    EXPECT_EQ(window.Controls().PannelloCapacita->text(), QStringLiteral("10000"))
        << "the capacity is the shown model's";
}

TEST_F(Acquisizione, MoreThanTenRecordsAreNotWrittenButAskedForAgain)
{
    Connect("Strale", "timbrature=30", {"33#1:troppi-record=11"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(Transfers().mid(0, 3), Commands({"33OK", "33NO", "33OK"}));
    EXPECT_EQ(PunchLines().size(), 30);
    EXPECT_TRUE(pc.dialog.told.empty()) << "the next attempt brought them";
}

TEST_F(Acquisizione, TerminalThatKeepsSendingTooManyRecordsIsToldAndLosesNothing)
{
    Connect("Strale", "timbrature=30,record=12");
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(PunchFile(), "");
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].icon, DialogIcon::Critical);
    EXPECT_TRUE(Outcome().startsWith(QStringLiteral("Errore: più di 10 timbrature")));
    EXPECT_EQ(Punches().Acquired(), 0U);

    commands.clear();
    EXPECT_FALSE(Acquire().done);
    EXPECT_EQ(Transfers(), Commands({"33NO", "33NO", "33NO"}))
        << "an answer that came and was not stored is never acknowledged";
}

TEST_F(Acquisizione, RecordCutShortIsWrittenAndNoted)
{
    Connect("Strale", "timbrature=3", {"33#1:record-corto=4"});
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), 3);
    ASSERT_EQ(pc.trace.notes.size(), 1);
    EXPECT_TRUE(pc.trace.notes[0].contains(QStringLiteral("incompleta")));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(Acquisizione, TerminalThatDeliversNothingIsGivenUpAfterThreeAnswers)
{
    Connect("Strale", "timbrature=5");
    pc.com1.answer_to = [this](std::string_view request) {
        commands << QString::fromLatin1(request.data() + 2,
                                        static_cast<qsizetype>(request.size()) - 4);
        // SOH, address 132 and the data; the checksums are worked out by hand.
        const bool status = commands.last() == QStringLiteral("32");
        return std::vector<testing::Arrival>{
            {5ms, status ? "\x01\x84TPnt 00004 TrInMemory 00005 TpntOld 00000 TpntNew 00004\xC3\r"
                         : "\x01\x84"
                           "END\xDC\r"}};
    };
    const AcquisitionOutcome outcome = Acquire();
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(Transfers().size(), 3);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].text, outcome.reason);
}

TEST_F(Acquisizione, ZeroAttemptsAskNothing)
{
    Connect("Strale", "timbrature=5");
    window.Controls().Tentativi->setText(QStringLiteral("0"));
    EXPECT_FALSE(Acquire().done);
    EXPECT_TRUE(Transfers().isEmpty());
}

TEST_F(Acquisizione, ExtendedLayoutIsWrittenWhenTheDatabaseSaysSo)
{
    Connect("Strale", "timbrature=4,seme=3");
    state.Database = jet::Database::Open(ORLO_TEST_DATA "/nimbo-full-2000.mdb");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(state.TipoTracciato, 1);
    EXPECT_EQ(state.CodiceAzienda, QStringLiteral("AZ0042"));
    EXPECT_EQ(PunchLines()[0].size(), 259);
    EXPECT_EQ(PunchLines()[0].mid(8, 2), "AZ");
}

TEST_F(Acquisizione, DatabaseWithoutTableOutputMeansTheStandardLayout)
{
    Connect("Strale", "timbrature=4");
    state.Database = jet::Database::Open(ORLO_TEST_DATA "/nimbo-base-2000.mdb");
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines()[0].size(), 33);
}

TEST_F(Acquisizione, FileWithdrawnInTheMiddleIsToldAndNothingIsLost)
{
    Connect("Strale", "timbrature=25");
    QObject::connect(window.Controls().PannelloPercentuale, &QProgressBar::valueChanged, &window,
                     [&](int value) {
                         if (value > 0 && value < 100)
                             QFile::remove(window.Controls().NomeFile->text());
                     });
    EXPECT_FALSE(Acquire().done);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    const std::size_t acknowledged = Punches().Acquired();
    EXPECT_LT(acknowledged, 25U);

    window.Controls().PannelloPercentuale->disconnect(&window);
    EXPECT_TRUE(Acquire().done);
    EXPECT_EQ(PunchLines().size(), static_cast<qsizetype>(25 - acknowledged));
}

TEST_F(Acquisizione, NothingIsSaidToGoOnWhileABoxSaysHowItEnded)
{
    Connect("Strale", "timbrature=25,record=12");
    ExpectNothingToGoOnInTheBox();
}

TEST_F(Acquisizione, FileThatCannotBeOpenedIsTold)
{
    Connect("Strale", "timbrature=5");
    window.Controls().NomeFile->setText(folder.filePath(QStringLiteral("no/TIMBRAT.TXT")));
    EXPECT_FALSE(Acquire().done);
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_TRUE(Transfers().isEmpty());
}

TEST_F(Acquisizione, WaitBetweenExchangesDoesNotUseTheTerminalsDelay)
{
    Connect("Strale", "timbrature=25");
    state.TerminalTable[kTerminal - 1].Ritardo = 0.9F;
    EXPECT_TRUE(Acquire().done);
    EXPECT_LT(pc.clock.Passed(), 500ms);
}

}  // namespace
}  // namespace orlo
