#include "acquisition/output_lines.h"

#include "acquisition/decodifica_timbrature.h"
#include "acquisition/punch_record.h"
#include "registry/terminal_type.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

constexpr int kOrloII = 3;
constexpr int kStrale = 4;
constexpr int kStraleN = 5;
constexpr int kLumo = 6;
constexpr int kOrloTre = 7;
constexpr int kSuperStrale = 8;

// Event, unused, badge, cause, hour, minute, unused, day, month, year, terminal.
const std::string kEntry = "9x12345600010830xx15030601";
const std::string kExit = "1x65432100121745xx15030601";
const std::string kOther = "7x00000199991201xx01128004";

std::string Blanks(std::size_t count)
{
    return std::string(count, ' ');
}

TEST(PunchRecord, IsCutByItsTable)
{
    const PunchRecord punch = CutPunchRecord(kEntry);
    EXPECT_EQ(punch.event, '9');
    EXPECT_EQ(punch.badge, "123456");
    EXPECT_EQ(punch.cause, "0001");
    EXPECT_EQ(punch.time, "0830");
    EXPECT_EQ(punch.date, "20060315");
    EXPECT_EQ(punch.terminal, "01");
}

TEST(PunchRecord, YearsAbove80AreOfTheLastCentury)
{
    for (const auto& [year, century] : {std::pair{"00", "20"},
                                        {"06", "20"},
                                        {"80", "20"},
                                        {"81", "19"},
                                        {"99", "19"},
                                        {"", "20"},
                                        {"x9", "20"}})
        EXPECT_EQ(CenturyOf(year), century) << year;
}

TEST(DirectionCode, FollowsTheRegisteredModel)
{
    struct Case {
        int type;
        const char* entries;
        const char* exits;
        const char* others;
    };
    const Case cases[] = {
        {kStraleN, "9<", "14", "08:2375x "},
        {kLumo, "9<", "14", "08:2375x "},
        {kSuperStrale, "9<", "14", "08:2375x "},
        {kOrloTre, "98:", "102", "<43756x "},
        {kOrloII, "9:", "12", "08<43756x "},
        {kStrale, "9:", "12", "08<43756x "},
        {1, "9:", "12", "08<4x"},
        {2, "9:", "12", "08<4x"},
        {0, "9:", "12", "08<4x"},
        {9, "9:", "12", "08<4x"},
    };
    for (const Case& c : cases) {
        for (const char event : std::string(c.entries))
            EXPECT_EQ(DirectionCode(c.type, event), '1') << c.type << event;
        for (const char event : std::string(c.exits))
            EXPECT_EQ(DirectionCode(c.type, event), '2') << c.type << event;
        for (const char event : std::string(c.others))
            EXPECT_EQ(DirectionCode(c.type, event), '0') << c.type << event;
    }
}

TEST(StandardLine, Has32CharactersInTheirPlaces)
{
    EXPECT_EQ(DecodificaTimbrature(kEntry + "END", {kStrale, 0, ""}).lines,
              "31200603150830000100001234560101\r\n");
}

TEST(ExtendedLine, Has258CharactersInTheirPlaces)
{
    const PunchLine entry{"20060315", "0830", "1", "123456", "0001", "01"};
    EXPECT_EQ(ComponeRigaEstesa(entry, "AZ0042"),
              "    001 AZ   1234560 001150320060830" + Blanks(222));
    EXPECT_EQ(ComponeRigaEstesa(entry, "AZ0042").size(), 258U);
}

TEST(ExtendedLine, RecodesTheDirection)
{
    PunchLine punch{"20060315", "0830", "2", "123456", "0001", "01"};
    EXPECT_EQ(ComponeRigaEstesa(punch, "").substr(19, 1), "1");
    punch.code = "1";
    EXPECT_EQ(ComponeRigaEstesa(punch, "").substr(19, 1), "0");
}

TEST(ExtendedLine, PlantCodeTakesTwoPlaces)
{
    for (const auto& [code, field] : {std::pair{"", "  "},
                                      {"   ", "  "},
                                      {"A", " A"},
                                      {" A", " A"},
                                      {"AZ", "AZ"},
                                      {"AZ0042", "AZ"},
                                      {" AZ0042", "AZ"}})
        EXPECT_EQ(PlantCodeField(code), field) << '"' << code << '"';
}

TEST(Decoding, EachRecordIsALine)
{
    const DecodedAnswer decoded =
        DecodificaTimbrature(kEntry + kExit + kOther + "END", {kStrale, 0, ""});
    EXPECT_EQ(decoded.records, 3);
    EXPECT_EQ(decoded.lines,
              "31200603150830000100001234560101\r\n"
              "31200603151745000200006543211201\r\n"
              "31208012011201000000000000019904\r\n");
    EXPECT_FALSE(decoded.last_record_cut_short);
}

TEST(Decoding, ExtendedLayoutRepeatsTheLineBeforeForOtherDirections)
{
    const std::string entry_line = "    001      1234560 001150320060830" + Blanks(222);
    const DecodedAnswer decoded =
        DecodificaTimbrature(kEntry + kOther + kOther + "END", {kStrale, 1, ""});
    EXPECT_EQ(decoded.lines, entry_line + "\r\n" + entry_line + "\r\n" + entry_line + "\r\n");
}

TEST(Decoding, ExtendedLayoutWritesAnEmptyLineForAFirstRecordOfOtherDirection)
{
    EXPECT_EQ(DecodificaTimbrature(kOther + "END", {kStrale, 1, ""}).lines, "\r\n");
}

TEST(Decoding, LineBeforeIsForgottenFromOneAnswerToTheNext)
{
    EXPECT_NE(DecodificaTimbrature(kEntry + "END", {kStrale, 1, ""}).lines, "\r\n");
    EXPECT_EQ(DecodificaTimbrature(kOther + "END", {kStrale, 1, ""}).lines, "\r\n");
}

TEST(Decoding, EndOfTheAnswer)
{
    struct Case {
        const char* name;
        std::string answer;
        int records;
        bool cut_short;
    };
    const Case cases[] = {
        {"only the end mark", "END", 0, false},
        {"nothing", "", 0, false},
        {"no end mark", kEntry + kExit, 2, false},
        {"last record cut short", kEntry + kExit.substr(0, 20), 2, true},
        {"a record shorter than any field", "9", 1, true},
        {"end mark with something behind it is a record", kEntry + "ENDx", 2, true},
    };
    for (const Case& c : cases) {
        const DecodedAnswer decoded = DecodificaTimbrature(c.answer, {kStrale, 0, ""});
        EXPECT_EQ(decoded.records, c.records) << c.name;
        EXPECT_EQ(decoded.last_record_cut_short, c.cut_short) << c.name;
    }
}

TEST(Decoding, RecordCutShortIsWrittenAsItStands)
{
    EXPECT_EQ(DecodificaTimbrature(kEntry.substr(0, 20), {kStrale, 0, ""}).lines,
              "3120150830000100001234560"
              "1\r\n");
}

TEST(Decoding, TenRecordsAreTakenAndElevenAreRefusedWhole)
{
    std::string ten;
    for (int i = 0; i < 10; ++i) ten += kEntry;
    EXPECT_EQ(DecodificaTimbrature(ten + "END", {kStrale, 0, ""}).records, 10);
    EXPECT_FALSE(DecodificaTimbrature(ten + "END", {kStrale, 0, ""}).too_many_records);

    const DecodedAnswer eleven = DecodificaTimbrature(ten + kExit + "END", {kStrale, 0, ""});
    EXPECT_TRUE(eleven.too_many_records);
    EXPECT_EQ(eleven.lines, "");
}

TEST(Decoding, UnknownLayoutBuildsNoLine)
{
    EXPECT_EQ(DecodificaTimbrature(kEntry + kExit + "END", {kStrale, 2, ""}).lines, "\r\n\r\n");
}

}  // namespace
}  // namespace orlo
