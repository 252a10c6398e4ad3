#include "simulator/line.h"

#include "tests/simulator/wall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace orlo::simulator
{
namespace
{

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The answer "OK" of terminal 1 and of terminal 2.
const std::string kOkOfOne =
    "\x01\x81"
    "OK\x9C\r";
const std::string kOkOfTwo =
    "\x01\x82"
    "OK\x9D\r";

/// A line with an Orlo II as terminal 1 and a Strale as terminal 2, 25 punches each, and what its
/// journal says.
class Wall
{
public:
    explicit Wall(std::initializer_list<const char*> faults = {}, LineSettings settings = {})
        : line_(settings,
                {MakeTerminal("numero=1,modello=Orlo II,timbrature=25"),
                 MakeTerminal("numero=2,modello=Strale,timbrature=25")},
                FaultPlan(Rules(faults)), [this](const JournalEntry& entry) { Note(entry); })
    {
    }

    std::vector<LineEvent> Receive(std::string_view bytes, Instant now = 0ms)
    {
        return line_.Receive(bytes, now);
    }

    std::string Ask(int terminal, std::string_view command)
    {
        return BytesOf(Receive(RequestTo(terminal, command)));
    }

    std::size_t Acquired(std::size_t terminal) const
    {
        return line_.Terminals()[terminal - 1].Punches().Acquired();
    }

    const std::vector<std::string>& Journal() const { return journal_; }
    Line& TheLine() { return line_; }

private:
    static std::vector<FaultRule> Rules(std::initializer_list<const char*> texts)
    {
        std::vector<FaultRule> rules;
        for (const char* text : texts) rules.push_back(ParseFaultRule(text));
        return rules;
    }

    void Note(const JournalEntry& entry)
    {
        journal_.push_back(std::to_string(entry.address) + " " + entry.command + " " + entry.deed);
    }

    std::vector<std::string> journal_;
    Line line_;
};

TEST(Line, EachTerminalAnswersItsOwnNumberOnly)
{
    Wall wall;
    EXPECT_EQ(wall.Ask(1, "97STORE"), kOkOfOne);
    EXPECT_EQ(wall.Ask(2, "97STORE"), kOkOfTwo);
    EXPECT_EQ(wall.Ask(3, "97STORE"), "");
    EXPECT_THAT(wall.Journal(),
                ElementsAre("1 97STORE formato badge memorizzato",
                            "2 97STORE formato badge memorizzato", "3 97STORE nessun terminale"));
}

TEST(Line, TerminalsKeepTheirMemoriesApart)
{
    Wall wall;
    wall.Ask(1, "33OK");
    wall.Ask(2, "33OK");
    wall.Ask(2, "33OK");
    EXPECT_EQ(wall.Acquired(1), 0U);
    EXPECT_EQ(wall.Acquired(2), 10U);
    wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Acquired(1), 10U);
}

TEST(Line, AllObeyACommandToAllAndNoneAnswers)
{
    Wall wall;
    EXPECT_EQ(wall.Ask(0, "010603151207093"), "");
    for (const Terminal& terminal : wall.TheLine().Terminals())
        EXPECT_EQ(terminal.Clock().LastSetting(), "0603151207093");
    EXPECT_THAT(wall.Journal(), ElementsAre("1 010603151207093 a tutti: orologio regolato",
                                            "2 010603151207093 a tutti: orologio regolato"));
}

TEST(Line, KeepsSilentOnADamagedRequest)
{
    Wall wall;
    EXPECT_THAT(wall.Receive("\x02\x81"
                             "33OK\x80\r"),
                IsEmpty());
    EXPECT_THAT(wall.Journal(), ElementsAre("1 33OK telegramma errato, ignorato"));
}

TEST(Line, IgnoresNoiseAndTakesRequestsInPieces)
{
    Wall wall;
    EXPECT_THAT(wall.Receive("xx\r\x7F\x02\x81"
                             "97ST"),
                IsEmpty());
    EXPECT_EQ(BytesOf(wall.Receive("ORE"
                                   "\xF8\r")),
              "")
        << "wrong checksum";
    const std::string request = RequestTo(1, "97STORE");
    EXPECT_THAT(wall.Receive("noise" + request.substr(0, 5)), IsEmpty());
    EXPECT_EQ(BytesOf(wall.Receive(request.substr(5) + "noise")), kOkOfOne);
}

TEST(Line, AnswersTwoRequestsThatComeTogether)
{
    Wall wall;
    EXPECT_EQ(BytesOf(wall.Receive(RequestTo(1, "97STORE") + RequestTo(2, "97STORE"))),
              kOkOfOne + kOkOfTwo);
}

TEST(Line, ALostAnswerIsRepeatedOnRefusal)
{
    Wall wall({"33#2:silenzio"});
    const std::string first = wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Ask(1, "33OK"), "");
    EXPECT_EQ(wall.Acquired(1), 10U) << "the terminal obeyed";
    const std::string second = wall.Ask(1, "33NO");
    EXPECT_NE(second, first);
    EXPECT_EQ(wall.Acquired(1), 10U);
    EXPECT_EQ(wall.Ask(1, "33NO"), second);
}

TEST(Line, ALostAnswerCountsAsSent)
{
    Wall wall({"33#1:silenzio"});
    EXPECT_EQ(wall.Ask(1, "33OK"), "");
    wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Acquired(1), 10U) << "an acknowledgement of what never arrived loses punches";
}

TEST(Line, ALostRequestChangesNothing)
{
    Wall wall({"33#2:richiesta-persa"});
    const std::string first = wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Ask(1, "33OK"), "");
    EXPECT_EQ(wall.Acquired(1), 0U);
    EXPECT_EQ(wall.Ask(1, "33NO"), first);
    EXPECT_THAT(wall.Journal()[1], HasSubstr("non ricevuta; guasto: richiesta-persa"));
}

TEST(Line, CountsRequestsOverTheWholeLine)
{
    Wall wall({"3:silenzio"});
    EXPECT_EQ(wall.Ask(1, "97STORE"), kOkOfOne);
    EXPECT_EQ(wall.Ask(7, "97STORE"), "");
    EXPECT_EQ(wall.Ask(2, "97STORE"), "");
    EXPECT_EQ(wall.Ask(2, "97STORE"), kOkOfTwo);
}

TEST(Line, HandsOverTooManyRecordsOnDemand)
{
    Wall wall({"33#1:troppi-record=12"});
    EXPECT_EQ(wall.Ask(1, "33OK").size(), 12 * 26 + 3 + 4U);
    EXPECT_EQ(wall.Ask(1, "33NO").size(), 10 * 26 + 3 + 4U) << "the fault was on one answer";
    wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Acquired(1), 10U);
}

TEST(Line, TooManyRecordsAreAcknowledgedAllTogether)
{
    Wall wall({"33#1:troppi-record"});
    wall.Ask(1, "33OK");
    wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Acquired(1), 11U);
}

TEST(Line, NamesTheFaultsInItsJournal)
{
    Wall wall({"1:rumore-prima", "97*:checksum-errato"});
    wall.Ask(1, "97STORE");
    EXPECT_THAT(wall.Journal()[0],
                HasSubstr("formato badge memorizzato; guasto: rumore-prima, checksum-errato"));
}

TEST(Line, AnswersAfterTheTurnaroundAndTheDelay)
{
    Wall wall({"2:ritardo=400"}, {.turnaround = 30ms});
    const auto prompt = wall.Receive(RequestTo(1, "97STORE"), 1s);
    ASSERT_EQ(prompt.size(), 1U);
    EXPECT_EQ(prompt[0].due, 1030ms);
    const auto late = wall.Receive(RequestTo(1, "97STORE"), 2s);
    ASSERT_EQ(late.size(), 1U);
    EXPECT_EQ(late[0].due, 2430ms);
}

TEST(Line, ATerminalThatIsLateDoesNotHoldUpTheOther)
{
    Wall wall({"1:ritardo=400"});
    EXPECT_EQ(wall.Receive(RequestTo(1, "97STORE"), 0ms).at(0).due, 400ms);
    EXPECT_EQ(wall.Receive(RequestTo(2, "97STORE"), 100ms).at(0).due, 100ms);
    EXPECT_EQ(wall.Receive(RequestTo(1, "97STORE"), 200ms).at(0).due, 400ms)
        << "one thing after the other";
}

TEST(Line, OrdersByTimeWhatSeveralTerminalsSend)
{
    Wall wall({"1:ritardo=400"});
    EXPECT_EQ(BytesOf(wall.Receive(RequestTo(1, "97STORE") + RequestTo(2, "97STORE"))),
              kOkOfTwo + kOkOfOne);
}

TEST(Line, TakesTheTimeOfTheRequestAndOfTheAnswer)
{
    // A byte a millisecond: 11 bytes of request, 6 of answer.
    Wall wall({}, {.bits_per_second = 10000, .turnaround = 20ms});
    const auto events = wall.Receive(RequestTo(1, "97STORE"), 1s);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].due, 1s + 11ms + 20ms + 4ms);
    EXPECT_EQ(events[1].due, 1s + 11ms + 20ms + 6ms);
}

TEST(Line, LosesTheLineInTheMiddleOfTheAnswer)
{
    Wall wall({"1:caduta=250"});
    const auto events = wall.Receive(RequestTo(1, "97STORE"));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].bytes,
              "\x01\x81"
              "O");
    EXPECT_EQ(events[0].hang_up, 250ms);
}

TEST(Line, ForgetsWhatWasUnderWayWhenItIsLost)
{
    Wall wall({"1:ritardo=9000"});
    wall.Ask(1, "33OK");
    wall.Receive("\x02\x81");
    wall.TheLine().HangUp();
    EXPECT_THAT(wall.Receive("97STORE\xF9\r"), IsEmpty());
    EXPECT_EQ(wall.Receive(RequestTo(1, "97STORE"), 10ms).at(0).due, 10ms);
    wall.Ask(1, "33OK");
    EXPECT_EQ(wall.Acquired(1), 10U) << "the terminal knows what it sent";
}

}  // namespace
}  // namespace orlo::simulator
