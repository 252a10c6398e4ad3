#include "simulator/punch_source.h"

#include "simulator/usage_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace orlo::simulator
{
namespace
{

using testing::HasSubstr;

const TerminalModel& Strale()
{
    return *FindModel("Strale");
}

// First numbers of the generator for seed 1: 1791095845, 4282876139, 3093770124, 4005303368.
TEST(InventPunches, FollowsTheSeed)
{
    const auto punches = InventPunches(1, 1, Strale());
    ASSERT_EQ(punches.size(), 1U);
    EXPECT_EQ(PunchRecord(punches[0], 1), "50773218006806172602010601");
    EXPECT_NE(PunchRecord(InventPunches(1, 2, Strale())[0], 1), PunchRecord(punches[0], 1));
}

TEST(InventPunches, GoesForwardInTime)
{
    const auto punches = InventPunches(500, 7, Strale());
    ASSERT_EQ(punches.size(), 500U);
    for (std::size_t i = 1; i < punches.size(); ++i) ASSERT_LT(punches[i - 1].at, punches[i].at);
}

TEST(InventPunches, CoversTheEventsOfEachModel)
{
    const std::pair<const char*, std::set<char>> cases[] = {
        {"Orlo II", {'9', ':', '1', '2', '5'}},
        {"Strale", {'9', ':', '1', '2', '5'}},
        {"Strale N", {'9', '<', '1', '4', '5'}},
        {"Lumo", {'9', '<', '1', '4', '5'}},
        {"SuperStrale", {'9', '<', '1', '4', '5'}},
        {"OrloTre", {'9', '8', ':', '1', '0', '2', '5'}},
    };
    for (const auto& [name, expected] : cases) {
        SCOPED_TRACE(name);
        std::set<char> events;
        for (const Punch& punch : InventPunches(300, 3, *FindModel(name)))
            events.insert(punch.event);
        EXPECT_EQ(events, expected);
    }
}

TEST(ParsePunch, RefusesWhatIsNoPunch)
{
    const std::pair<const char*, const char*> cases[] = {
        {"9 123456 0001 15/03/2006", "servono"},
        {"9 123456 0001 15/03/2006 08:30 01", "servono"},
        {"99 123456 0001 15/03/2006 08:30", "evento"},
        {"9 1234567 0001 15/03/2006 08:30", "badge"},
        {"9 12A 0001 15/03/2006 08:30", "badge"},
        {"9 123456 00001 15/03/2006 08:30", "causale"},
        {"9 123456 0001 30/02/2006 08:30", "data"},
        {"9 123456 0001 15/03/06 08:30", "data"},
        {"9 123456 0001 31/12/1980 08:30", "data"},
        {"9 123456 0001 01/01/2081 08:30", "data"},
        {"9 123456 0001 15/03/2006 24:00", "ora"},
        {"9 123456 0001 15/03/2006 08:60", "ora"},
        {"9 123456 0001 15/03/2006 0830", "ora"},
    };
    for (const auto& [line, reason] : cases) {
        SCOPED_TRACE(line);
        try {
            ParsePunch(line);
            ADD_FAILURE() << "accepted";
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(reason));
        }
    }
}

TEST(ReadPunches, PassesOverRemarksAndEmptyLines)
{
    std::istringstream lines(
        "# turno di notte\n\n9 1 0 01/01/2006 22:00\r\n  \n1 1 0 02/01/2006 06:00");
    const auto punches = ReadPunches(lines);
    ASSERT_EQ(punches.size(), 2U);
    EXPECT_EQ(PunchRecord(punches[0], 1), "90000001000022000001010601");
    EXPECT_EQ(PunchRecord(punches[1], 1), "10000001000006000002010601");
}

TEST(ReadPunches, NamesTheLineThatIsWrong)
{
    std::istringstream lines("# notte\n9 1 0 01/01/2006 22:00\n9 1 0 ieri 22:00\n");
    try {
        ReadPunches(lines);
        ADD_FAILURE() << "accepted";
    } catch (const UsageError& error) {
        EXPECT_THAT(error.what(), HasSubstr("riga 3"));
    }
}

}  // namespace
}  // namespace orlo::simulator
