// Punch records through the protocol component, over a pseudo-terminal, from a simulated terminal.

#include "tests/simulator/component_fixture.h"

#include <gmock/gmock.h>

#include <fstream>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;

class ComponentRecords : public ComponentTest
{
protected:
    void StartWithFile(const std::string& lines, const std::string& more = "")
    {
        std::ofstream(PathOf("timbrature")) << lines;
        StartTerminal(",file=" + PathOf("timbrature") + more);
    }
};

const char* const kThree =
    "Presenze Entrata 123456 0001 7 15/03/2006 08:30\n"
    "Accessi Entrata 99 0002 0 15/03/2006 09:00:01\n"
    "Informazioni Info 0 OF 1000 16/03/2006 23:59:59\n";

TEST_F(ComponentRecords, TellsTheCountersWhoseRestIsToAcquire)
{
    StartTerminal(",timbrature=20,acquisite=5,capacita=100");
    Client client(Line());
    ASSERT_TRUE(client.Status()) << client.Records().ReceivedCommand();
    EXPECT_EQ(client.Records().MaxRecords(), 100);
    EXPECT_EQ(client.Records().FreeRecords(), 80);
    EXPECT_EQ(client.Records().TrasmittedRecords(), 5);
    EXPECT_EQ(client.Records().ReceivedCommand(), "");
}

TEST_F(ComponentRecords, GivesEveryFieldOfARecord)
{
    StartWithFile(kThree);
    Client client(Line());
    component::RecordData& record = client.Records();
    ASSERT_TRUE(client.Record(1));
    EXPECT_EQ(record.TerminalNo(), "4");
    EXPECT_EQ(record.IdNumber(), "123456");
    EXPECT_EQ(record.Date(), "15/03/2006");
    EXPECT_EQ(record.Time(), "08:30:00");
    EXPECT_EQ(record.Type(), "Presenze");
    EXPECT_EQ(record.Direction(), "Entrata");
    EXPECT_EQ(record.Cause(), "0001");
    EXPECT_EQ(record.PersonalCause(), 7);
    EXPECT_FALSE(record.Deleted());
    ASSERT_TRUE(client.Record(3));
    EXPECT_EQ(record.Type(), "Informazioni");
    EXPECT_EQ(record.Direction(), "Info");
    EXPECT_EQ(record.Cause(), "OF");
    EXPECT_EQ(record.PersonalCause(), 1000);
}

TEST_F(ComponentRecords, HandsOverWhatIsNotMarkedAndMarksIt)
{
    StartTerminal(",timbrature=3,acquisite=1");
    Client client(Line());
    ASSERT_TRUE(client.Status());
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(client.Next());
        EXPECT_FALSE(client.Records().Deleted());
        ASSERT_TRUE(client.Records().SetAsDeleted());
        EXPECT_TRUE(client.Records().Deleted());
    }
    EXPECT_FALSE(client.Next());
    EXPECT_EQ(client.Records().ReceivedCommand(), "ER");
    EXPECT_THAT(State(), HasSubstr("4.acquisite=3\n4.da_acquisire=0\n"));
}

// A record of a type that the program leaves alone is never marked: it must not come for ever.
TEST_F(ComponentRecords, GoOnBehindARecordThatWasNotMarked)
{
    StartWithFile(kThree);
    Client client(Line());
    ASSERT_TRUE(client.Status());
    const std::vector<std::string> types = {"Presenze", "Accessi", "Informazioni"};
    for (const std::string& type : types) {
        ASSERT_TRUE(client.Next());
        EXPECT_EQ(client.Records().Type(), type);
    }
    EXPECT_FALSE(client.Next());
    EXPECT_EQ(client.Records().ReceivedCommand(), "ER");
    ASSERT_TRUE(client.Next()) << "from the beginning";
    EXPECT_EQ(client.Records().Type(), "Presenze");
    ASSERT_TRUE(client.Status());
    ASSERT_TRUE(client.Next()) << "GetRecordsInfo begins anew";
    EXPECT_EQ(client.Records().Type(), "Presenze");
    ASSERT_TRUE(client.Records().GetFirstRecord(client.terminal, client.priority));
    EXPECT_EQ(client.Records().Type(), "Presenze");
    ASSERT_TRUE(client.Next());
    EXPECT_EQ(client.Records().Type(), "Accessi");
}

TEST_F(ComponentRecords, AreReadByNumberMarkedOrNot)
{
    StartTerminal(",timbrature=3,acquisite=2");
    Client client(Line());
    ASSERT_TRUE(client.Records().GetNumber(client.terminal, client.priority));
    EXPECT_EQ(client.Records().Records(), 3);
    const std::vector<bool> deleted = {true, true, false};
    for (std::int16_t number = 1; number <= 3; ++number) {
        ASSERT_TRUE(client.Record(number)) << number;
        EXPECT_EQ(client.Records().Deleted(), deleted.at(static_cast<std::size_t>(number) - 1));
    }
    for (const std::int16_t number : std::initializer_list<std::int16_t>{0, 4, 4000, -1}) {
        EXPECT_FALSE(client.Record(number)) << number;
        EXPECT_EQ(client.Records().ReceivedCommand(), "ER");
    }
}

TEST_F(ComponentRecords, FillTheWholeMemory)
{
    StartTerminal(",timbrature=4000");
    Client client(Line());
    ASSERT_TRUE(client.Status());
    EXPECT_EQ(client.Records().MaxRecords(), 4000);
    EXPECT_EQ(client.Records().FreeRecords(), 0);
    for (std::int16_t number = 1; number <= 4000; ++number)
        ASSERT_TRUE(client.Record(number)) << number;
    EXPECT_FALSE(client.Record(4001));
}

TEST_F(ComponentRecords, AreNotMarkedWhenNoneIsCurrent)
{
    StartTerminal(",timbrature=1,acquisite=1");
    Client client(Line());
    EXPECT_FALSE(client.Records().SetAsDeleted());
    EXPECT_EQ(client.Records().ReceivedCommand(), "96,Nessun record corrente");
    ASSERT_TRUE(client.Record(1));
    EXPECT_FALSE(client.Next());
    EXPECT_FALSE(client.Records().SetAsDeleted()) << "the record before is no longer current";
}

TEST_F(ComponentRecords, MarkedByOneClientAreMarkedForTheNext)
{
    StartTerminal(",timbrature=4");
    for (std::int32_t marked = 0; marked < 4; ++marked) {
        Client client(Line());
        ASSERT_TRUE(client.Status());
        EXPECT_EQ(client.Records().TrasmittedRecords(), marked);
        ASSERT_TRUE(client.Next());
        ASSERT_TRUE(client.Records().SetAsDeleted());
    }
    Client client(Line());
    EXPECT_FALSE(client.Next());
    EXPECT_EQ(client.Records().ReceivedCommand(), "ER");
}

// The mark is made though its answer was lost; made again it is the same mark.
TEST_F(ComponentRecords, TakeAMarkTwice)
{
    StartTerminal(",timbrature=2", {"--guasto", "marca#1:silenzio"});
    Client client(Line());
    ASSERT_TRUE(client.Next());
    EXPECT_FALSE(client.Records().SetAsDeleted());
    EXPECT_EQ(client.Records().ReceivedCommand(), "99,Time Out");
    EXPECT_FALSE(client.Records().Deleted());
    EXPECT_TRUE(client.Records().SetAsDeleted());
    EXPECT_THAT(State(), HasSubstr("4.acquisite=1\n"));
}

TEST_F(ComponentRecords, StayInPlaceWhenAnAnswerIsLost)
{
    StartWithFile(kThree, "");
    Client client(Line());
    ASSERT_TRUE(client.Next());
    client.terminal = 5;  // nobody there
    EXPECT_FALSE(client.Next());
    EXPECT_EQ(client.Records().ReceivedCommand(), "99,Time Out");
    client.terminal = 4;
    ASSERT_TRUE(client.Next());
    EXPECT_EQ(client.Records().Type(), "Accessi") << "none was left out";
}

}  // namespace
}  // namespace orlo::simulator
