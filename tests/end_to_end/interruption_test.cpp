#include "tests/end_to_end/folder_watch.h"
#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/journal_pipe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

namespace fs = std::filesystem;

using testing::HasSubstr;

/// Terminal 4, a Strale with 25 punches, takes half a second over each answer: the test acts
/// meanwhile.
class Interruption : public testing::Test
{
protected:
    const Installation installation;
    const std::vector<Punch> punches = VariedPunches(25);
    JournalPipe journal{installation.PathOf("com1.registro")};
    std::unique_ptr<SimulatedLine> line;

    void SetUp() override
    {
        installation.Register({{.terminal = 4}});
        line = installation.SimulateStrale(punches, {"--attesa", "500"});
    }
    Lines FirstLines(std::ptrdiff_t count) const
    {
        return StandardLines({punches.begin(), punches.begin() + count}, 4, "9:", "12");
    }
    /// The program, at the moment in which it has sent its second "33OK".
    std::unique_ptr<ChildProcess> StartThroughTheSecondRequest(const std::string& terminals = "4")
    {
        auto program = installation.Start({"--acquisisci", terminals});
        EXPECT_TRUE(journal.WaitFor("33OK") && journal.WaitFor("33OK"));
        return program;
    }
};

TEST_F(Interruption, LockFileIsThereWhileTheProgramRuns)
{
    const auto program = StartThroughTheSecondRequest();
    ASSERT_TRUE(installation.Has("nimbo.ldb"));
    // One entry: the name of the computer and the user, 32 bytes each.
    EXPECT_EQ(installation.Read("nimbo.ldb").size(), 64U);
    const Ended second = installation.Run({"--acquisisci", "4", "--file", "altro.txt"});
    EXPECT_EQ(second.status, 1);
    EXPECT_THAT(second.errors, HasSubstr("il programma è già aperto"));
    EXPECT_EQ(program->Wait().status, 0);
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_FALSE(installation.Has("altro.txt"));
    EXPECT_EQ(installation.PunchLines(), FirstLines(25));
}

class Signal : public Interruption, public testing::WithParamInterface<int>
{
};

TEST_P(Signal, EndsTheAcquisitionInOrder)
{
    const auto program = StartThroughTheSecondRequest("4,6");
    program->Signal(GetParam());
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Terminale 4 non acquisito: Acquisizione interrotta.\n"
              "Terminale 6 non acquisito: programma interrotto\n");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    // The answer that was on its way is stored too; the next run acknowledges it.
    EXPECT_EQ(installation.PunchLines(), FirstLines(20));
    EXPECT_EQ(line->State("4.acquisite"), "10");

    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(installation.PunchLines(), FirstLines(25));
    EXPECT_EQ(line->State("4.da_acquisire"), "0");
}

INSTANTIATE_TEST_SUITE_P(Interruption, Signal, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& signal) {
                             return std::string("SIG") + sigabbrev_np(signal.param);
                         });

TEST(MainWindow, SignalClosesItAndTakesTheLockFileAway)
{
    Installation installation;
    installation.ShowOffScreen();
    const FolderWatch folder(installation.PathOf(""));
    const auto program = installation.Start({});
    ASSERT_TRUE(folder.WaitFor("nimbo.ldb"));
    program->Signal(SIGTERM);
    const Ended ended = program->Wait();
    EXPECT_LE(ended.status, 1) << "neither killed nor crashed";
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

// Killed behind the acknowledgement of the first answer: what it acknowledged is in the file. Its
// lock file stays behind, as after any crash.
TEST_F(Interruption, KilledProgramHasStoredWhatItAcknowledged)
{
    const auto program = StartThroughTheSecondRequest();
    program->Signal(SIGKILL);
    EXPECT_EQ(program->Wait().status, 128 + SIGKILL);
    EXPECT_EQ(line->State("4.acquisite"), "10");
    EXPECT_EQ(installation.PunchLines(), FirstLines(10));
    EXPECT_TRUE(installation.Has("nimbo.ldb"));
}

// The payroll program takes the punch file away while the terminal is at its second answer. That
// answer is written into the file taken away, found missing under its name, and cut off again.
TEST_F(Interruption, FileWithdrawnInTheMiddleIsToldAndItsAnswerNotAcknowledged)
{
    const auto program = StartThroughTheSecondRequest();
    fs::rename(installation.PathOf("TIMBRAT.TXT"), installation.PathOf("preso.txt"));
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("Attenzione: Impossibile scrivere le timbrature nel file "
                                        "\"TIMBRAT.TXT\": "));
    EXPECT_THAT(ended.errors,
                HasSubstr("Le timbrature restano nel terminale e saranno richieste di nuovo.\n"));
    EXPECT_EQ(installation.PunchLines("preso.txt"), FirstLines(10));
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
    EXPECT_EQ(line->State("4.acquisite"), "10");
}

// Room for the longest answer, 2600 bytes, is secured before it is asked for: with 680 bytes in the
// file the third answer is not, and the terminal hands it over to the next run.
TEST(FullDisk, NothingIsAskedForWithoutRoomForIt)
{
    Installation installation;
    const std::vector<Punch> punches = VariedPunches(25);
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(punches);
    installation.LimitFiles(3000);
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("Attenzione: Impossibile scrivere le timbrature nel file "
                                        "\"TIMBRAT.TXT\": "));
    EXPECT_EQ(line->Commands(), "32 33OK 32 33OK 32");
    EXPECT_EQ(line->State("4.acquisite"), "10");
    EXPECT_EQ(installation.PunchLines(),
              StandardLines({punches.begin(), punches.begin() + 20}, 4, "9:", "12"));

    installation.LiftLimit();
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(installation.PunchLines(), StandardLines(punches, 4, "9:", "12"));
    EXPECT_EQ(line->State("4.da_acquisire"), "0");
}

TEST(FullDisk, DeviceWithoutRoomIsToldAndNothingAcknowledged)
{
    const Installation installation;
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(VariedPunches(25));
    const Ended ended = installation.Run({"--acquisisci", "4", "--file", "/dev/full"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("nel file \"/dev/full\": "));
    EXPECT_EQ(line->State("4.acquisite"), "0");
}

TEST(FullDisk, FolderThatIsNotThereIsToldBeforeAnyPunchIsAskedFor)
{
    const Installation installation;
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(VariedPunches(5));
    const Ended ended = installation.Run({"--acquisisci", "4", "--file", "manca/TIMBRAT.TXT"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("Impossibile aprire il file \"manca/TIMBRAT.TXT\": "));
    EXPECT_EQ(line->Commands(), "32");
}

}  // namespace
}  // namespace orlo::end_to_end
