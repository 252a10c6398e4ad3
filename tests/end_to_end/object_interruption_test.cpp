// What interrupts the acquisition of an Orlo from outside. A record is marked in the terminal only
// when its line is in the file, at whatever moment the program is stopped.

#include "tests/end_to_end/journal_pipe.h"
#include "tests/end_to_end/object_installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

using testing::EndsWith;
using testing::StartsWith;

/// The terminal takes a third of a second over each answer: the test acts meanwhile.
class ObjectInterruption : public testing::Test
{
protected:
    ObjectInstallation installation{kOrlo};
    JournalPipe journal{installation.PathOf("com1.registro")};
    const std::unique_ptr<SimulatedLine> line =
        installation.Simulate(kThreeRecords, {"--attesa", "300"});

    static Lines FirstLines(std::ptrdiff_t count)
    {
        return {kThreeLines.begin(), kThreeLines.begin() + count};
    }
    /// The program, at the moment in which its second mark has reached the terminal.
    std::unique_ptr<ChildProcess> StartThroughTheSecondMark()
    {
        auto program = installation.Start({"--acquisisci", "6"});
        EXPECT_TRUE(journal.WaitFor("marca 1"));
        EXPECT_EQ(installation.PunchLines(), FirstLines(1));
        EXPECT_TRUE(journal.WaitFor("marca 2"));
        return program;
    }
    void ExpectTheRestFromASecondRun()
    {
        const Ended second = installation.Acquire();
        EXPECT_EQ(second.status, 0);
        EXPECT_EQ(second.errors, "");
        EXPECT_EQ(installation.PunchLines(), kThreeLines);
        EXPECT_EQ(line->State("6.acquisite"), "3");
    }
};

TEST_F(ObjectInterruption, TerminatedProgramEndsInOrderBehindTheMark)
{
    const auto program = StartThroughTheSecondMark();
    program->Signal(SIGTERM);
    const Ended ended = program->Wait();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 6 non acquisito: Acquisizione interrotta.\n");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_EQ(installation.PunchLines(), FirstLines(2));
    EXPECT_EQ(line->State("6.acquisite"), "2");
    ExpectTheRestFromASecondRun();
}

TEST_F(ObjectInterruption, KilledProgramHasStoredWhatItMarked)
{
    const auto program = StartThroughTheSecondMark();
    program->Signal(SIGKILL);
    EXPECT_EQ(program->Wait().status, 128 + SIGKILL);
    EXPECT_EQ(installation.PunchLines(), FirstLines(2));
    EXPECT_EQ(line->State("6.acquisite"), "2");
    // As after any crash.
    ASSERT_TRUE(std::filesystem::remove(installation.PathOf("nimbo.ldb")));
    ExpectTheRestFromASecondRun();
}

/// The same three punches ten times over.
class ObjectOnAFullDisk : public testing::Test
{
protected:
    ObjectInstallation installation{kOrlo};
    std::unique_ptr<SimulatedLine> line;
    Lines lines;

    void SetUp() override
    {
        std::string records;
        for (int i = 0; i < 10; ++i) {
            records += kThreeRecords;
            lines.insert(lines.end(), kThreeLines.begin(), kThreeLines.end());
        }
        line = installation.Simulate(records);
    }
};

TEST_F(ObjectOnAFullDisk, RecordWithoutRoomIsNeitherAskedForNorMarked)
{
    // 25 lines of 32 characters and their CR LF.
    installation.LimitFiles(25UL * 34);
    const Ended first = installation.Acquire();
    EXPECT_EQ(first.status, 1);
    EXPECT_THAT(first.errors, StartsWith("Attenzione: Impossibile scrivere le timbrature nel file "
                                         "\"TIMBRAT.TXT\": "));
    EXPECT_THAT(line->Commands(), EndsWith("prossima 25 marca 25"));
    EXPECT_EQ(installation.PunchLines(), Lines(lines.begin(), lines.begin() + 25));
    EXPECT_EQ(line->State("6.acquisite"), "25");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));

    installation.LiftLimit();
    EXPECT_EQ(installation.Acquire().status, 0);
    EXPECT_EQ(installation.PunchLines(), lines);
    EXPECT_EQ(line->State("6.acquisite"), "30");
}

}  // namespace
}  // namespace orlo::end_to_end
