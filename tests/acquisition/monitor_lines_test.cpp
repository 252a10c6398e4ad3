#include "acquisition/monitor_lines.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

constexpr int kStrale = 4;
constexpr int kStraleN = 5;
constexpr int kOrloTre = 7;

constexpr const char* kRecord = "9 123456000108300015030601";

std::vector<std::string> Lines(const std::string& answer, int first, const MonitorRules& rules)
{
    std::vector<std::string> lines;
    for (const MonitorPunch& punch : DecodeMonitorAnswer(answer, first, rules))
        lines.push_back(ComponeRigaMonitor(punch));
    return lines;
}

using Expected = std::vector<std::string>;

TEST(MonitorLine, ColumnsBeginUnderTheHeading)
{
    const std::string line = Lines(kRecord, 1, {kStrale, 1}).at(0);
    EXPECT_EQ(line, "0001    123456  15/03/2006    08:30     Entrata      0001     Da Acquisire");
    const std::string heading(kMonitorHeading);
    EXPECT_EQ(heading.find("Badge"), line.find("123456"));
    EXPECT_EQ(heading.find("Data"), line.find("15/03/2006"));
    EXPECT_EQ(heading.find("Ora"), line.find("08:30"));
    EXPECT_EQ(heading.find("Tipo"), line.find("Entrata"));
    EXPECT_EQ(heading.find("Causale"), line.find("0001     Da"));
    EXPECT_EQ(heading.find("Stato"), line.find("Da Acquisire"));
}

TEST(MonitorLine, RunningNumberHasFourDigitsAtLeast)
{
    const std::pair<int, const char*> cases[] = {
        {9, "0009    123456  "},    {10, "0010    123456  "},   {99, "0099    123456  "},
        {100, "0100    123456  "},  {999, "0999    123456  "},  {1000, "1000    123456  "},
        {9999, "9999    123456  "}, {10000, "10000   123456  "}};
    for (const auto& [number, beginning] : cases)
        EXPECT_EQ(Lines(kRecord, number, {kStrale, 0}).at(0).substr(0, 16), beginning);
}

TEST(MonitorLine, TypeFollowsTheModelsEventCharacters)
{
    const struct {
        int type;
        char event;
        const char* from_column_41_to_cause;
    } cases[] = {
        {kStrale, '9', "Entrata      0001"},  {kStrale, ':', "Entrata      0001"},
        {kStrale, '1', "Uscita       0001"},  {kStrale, '2', "Uscita       0001"},
        {kStrale, '<', "             0001"},  {kStraleN, '<', "Entrata      0001"},
        {kStraleN, '4', "Uscita       0001"}, {kStraleN, ':', "             0001"},
        {kOrloTre, '8', "Entrata      0001"}, {kOrloTre, '0', "Uscita       0001"},
        {kOrloTre, '5', "             0001"},
    };
    for (const auto& [type, event, expected] : cases) {
        const std::string record = event + std::string(kRecord + 1);
        EXPECT_EQ(Lines(record, 1, {type, 0}).at(0).substr(40, 17), expected) << event;
    }
}

TEST(MonitorLine, UnknownTypeLeavesAtLeastFifteenBlanks)
{
    const std::string record = "5" + std::string(kRecord + 1);
    EXPECT_EQ(Lines(record, 1, {kStrale, 0}).at(0),
              "0001    123456  15/03/2006    08:30                  0001     Acquisita");
}

TEST(MonitorLine, CenturyTurnsBehindEighty)
{
    EXPECT_EQ(Lines("9 123456000108300015038001", 1, {kStrale, 0}).at(0).substr(16, 10),
              "15/03/2080");
    EXPECT_EQ(Lines("9 123456000108300015038101", 1, {kStrale, 0}).at(0).substr(16, 10),
              "15/03/1981");
}

TEST(MonitorAnswer, RecordsAreNumberedOnFromTheFirst)
{
    const std::string answer = std::string(kRecord) + "1 000007000017020015030601" + "END";
    EXPECT_EQ(
        Lines(answer, 41, {kStrale, 41}),
        (Expected{"0041    123456  15/03/2006    08:30     Entrata      0001     Da Acquisire",
                  "0042    000007  15/03/2006    17:02     Uscita       0000     Acquisita"}));
}

TEST(MonitorAnswer, NothingShorterThanARecordIsALine)
{
    const struct {
        const char* name;
        std::string answer;
        std::size_t lines;
    } cases[] = {
        {"empty", "", 0},
        {"25 characters", std::string(25, '9'), 0},
        {"a word", "COMANDO SCONOSCIUTO", 0},
        {"one record and a piece", kRecord + std::string("9 1234"), 1},
        {"END behind a record", kRecord + std::string("END"), 1},
        {"END with more than a record behind it", "END" + std::string(30, '9'), 0},
        {"no END", std::string(kRecord) + kRecord, 2},
    };
    for (const auto& [name, answer, lines] : cases)
        EXPECT_EQ(DecodeMonitorAnswer(answer, 1, {kStrale, 0}).size(), lines) << name;
}

TEST(MonitorRules, PointersTellHowManyAreStillToBeAcquired)
{
    constexpr auto kPlusOne = MemoryCounting::PointerPlusOne;
    constexpr auto kCount = MemoryCounting::PointerIsCount;
    const struct {
        MemoryCounting counting;
        const char* pointer;
        const char* oldest;
        int to_acquire;
    } cases[] = {
        {kPlusOne, "00041", "00000", 42}, {kPlusOne, "00041", "00042", 0},
        {kPlusOne, "00041", "00030", 12}, {kCount, "00041", "00000", 41},
        {kCount, "00041", "00041", 0},    {kCount, "00041", "00030", 11},
        {kCount, "00000", "00000", 0},    {kPlusOne, "00009", "00020", -10},
    };
    for (const auto& [counting, pointer, oldest, to_acquire] : cases)
        EXPECT_EQ(MonitorRulesFor(kStrale, counting, pointer, oldest).to_acquire, to_acquire)
            << pointer << ", " << oldest;
}

TEST(MonitorAnswer, StateTurnsAtTheLastPunchToAcquire)
{
    const std::string answer = std::string(kRecord) + kRecord + kRecord;
    const std::vector<MonitorPunch> punches = DecodeMonitorAnswer(answer, 11, {kStrale, 12});
    ASSERT_EQ(punches.size(), 3U);
    EXPECT_EQ(punches[0].state, "Da Acquisire");
    EXPECT_TRUE(punches[1].to_acquire);
    EXPECT_EQ(punches[2].state, "Acquisita");
    EXPECT_FALSE(punches[2].to_acquire);
}

ObjectRecord Record()
{
    return {.Type = "Presenze",
            .Date = "15/03/2006",
            .Time = "08:30",
            .Direction = "Entrata",
            .IdNumber = "123456",
            .TerminalNo = "04",
            .PersonalCause = 0,
            .Deleted = false};
}

TEST(MonitorObjectLine, StandsUnderTheSameHeadingWithItsTerminalBehindTheState)
{
    EXPECT_EQ(ComponeRigaMonitor(MonitorPunchOf(7, Record(), "12")),
              "0007    123456  15/03/2006    08:30     Entrata      12       Non Inviata   "
              "Term. 04");
    ObjectRecord sent = Record();
    sent.Deleted = true;
    EXPECT_EQ(ComponeRigaMonitor(MonitorPunchOf(7, sent, "")),
              "0007    123456  15/03/2006    08:30     Entrata               Inviata       "
              "Term. 04");
}

TEST(MonitorObjectLine, InformationIsShownWithItsPersonalCause)
{
    ObjectRecord record = Record();
    record.Direction = "Info";
    record.PersonalCause = 1002;
    EXPECT_EQ(ComponeRigaMonitor(MonitorPunchOf(1, record, "IN")),
              "0001    123456  15/03/2006    08:30     Info 1002    IN       Non Inviata   "
              "Term. 04");
}

TEST(MonitorObjectLine, LongBadgePushesOnlyTheDate)
{
    ObjectRecord record = Record();
    record.IdNumber = "1234567890";
    EXPECT_EQ(ComponeRigaMonitor(MonitorPunchOf(1, record, "12")),
              "0001    1234567890 15/03/2006 08:30     Entrata      12       Non Inviata   "
              "Term. 04");
}

}  // namespace
}  // namespace orlo
