// A line of Orlo and Sipa terminals without a port: bytes in, bytes with their times out.

#include "tests/simulator/wall.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;
using namespace std::string_literals;

const std::string kRequest =
    "\xE5\x07\x01\x00\x01\x00\x08\x00\x09"
    "\x06\x00numero"
    "\xC6\x41"s;
const std::string kAnswer =
    "\xE6\x07\x01\x00\x01\x00\x08\x00\x08"
    "\x02\x00OK\x02\x00\x31\x32"
    "\x20\x09"s;

class ObjectLine : public testing::Test
{
protected:
    Line MakeLine(std::string_view settings, std::vector<FaultRule> faults = {},
                  LineSettings line = {})
    {
        std::vector<ObjectTerminal> terminals;
        terminals.emplace_back(ParseObjectTerminal(settings), StoppedClock());
        return {line, std::move(terminals), FaultPlan(faults),
                [this](const JournalEntry& entry) { journal_.push_back(entry); }};
    }

    std::vector<JournalEntry> journal_;
};

TEST_F(ObjectLine, AnswersAWholeFrameAndTellsTheJournal)
{
    Line line = MakeLine("numero=1,modello=Orlo,timbrature=12");
    EXPECT_EQ(BytesOf(line.Receive(kRequest, 0ms)), kAnswer);
    ASSERT_EQ(journal_.size(), 1U);
    EXPECT_EQ(journal_[0].address, 1);
    EXPECT_EQ(journal_[0].command, "numero");
    EXPECT_EQ(journal_[0].deed, "numero dei record");
    EXPECT_EQ(journal_[0].answer, "OK 12");
}

TEST_F(ObjectLine, IsSilentToAnythingElse)
{
    Line line = MakeLine("numero=2,modello=Orlo");
    EXPECT_EQ(BytesOf(line.Receive(kRequest, 0ms)), "") << "for terminal 1";
    ASSERT_EQ(journal_.size(), 1U);
    EXPECT_EQ(journal_[0].deed, "nessun terminale");
    EXPECT_EQ(BytesOf(line.Receive("ATD0123\r" + kAnswer + RequestTo(2, "03"), 0ms)), "");
    EXPECT_EQ(journal_.size(), 1U) << "no frame, no request";
}

TEST_F(ObjectLine, GivesUpAFrameThatPausesForASecond)
{
    Line line = MakeLine("numero=1,modello=Orlo,timbrature=12");
    EXPECT_EQ(BytesOf(line.Receive(kRequest.substr(0, 12), 0ms)), "");
    EXPECT_EQ(BytesOf(line.Receive(kRequest.substr(12), 1000ms)), kAnswer) << "just in time";
    EXPECT_EQ(BytesOf(line.Receive(kRequest.substr(0, 12), 2000ms)), "");
    EXPECT_EQ(BytesOf(line.Receive(kRequest.substr(12), 3001ms)), "");
    EXPECT_EQ(BytesOf(line.Receive(kRequest, 3002ms)), kAnswer);
}

TEST_F(ObjectLine, ForgetsHalfARequestWhenItHangsUp)
{
    Line line = MakeLine("numero=1,modello=Orlo,timbrature=12");
    line.Receive(kRequest.substr(0, 12), 0ms);
    line.HangUp();
    EXPECT_EQ(BytesOf(line.Receive(kRequest.substr(12), 1ms)), "");
    EXPECT_EQ(BytesOf(line.Receive(kRequest, 2ms)), kAnswer);
}

TEST_F(ObjectLine, KeepsThePaceOfItsSpeed)
{
    Line line = MakeLine("numero=1,modello=Orlo,timbrature=12", {}, {1000, 50ms});
    const std::vector<LineEvent> events = line.Receive(kRequest, 0ms);
    ASSERT_FALSE(events.empty());
    // 19 bytes each way at 10 ms a byte, and the turnaround between them.
    EXPECT_EQ(events.back().due, 19 * 10ms + 50ms + 19 * 10ms);
}

TEST_F(ObjectLine, RefusesWithTheCodeAndDoesNothing)
{
    Line line = MakeLine("numero=1,modello=Orlo,timbrature=12",
                         {ParseFaultRule("numero#1:esito=21,Errore linea")});
    EXPECT_NE(BytesOf(line.Receive(kRequest, 0ms)).find("21,Errore linea"), std::string::npos);
    ASSERT_EQ(journal_.size(), 1U);
    EXPECT_EQ(journal_[0].deed, "non eseguita; guasto: esito");
    EXPECT_EQ(journal_[0].answer, "21,Errore linea");
    EXPECT_EQ(BytesOf(line.Receive(kRequest, 1ms)), kAnswer) << "only the first";
}

}  // namespace
}  // namespace orlo::simulator
