#include "bells/ring_line.h"

#include "bells/ring_columns.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

BellRow Row(int position, int hour, int minute, const char* days, int relay, int duration)
{
    return {0, position, hour, minute, QString::fromLatin1(days), relay, duration};
}

struct Case {
    const char* name;
    BellRow row;
    //       1234567890123456789012345678901234567890123 4
    const char* line;
};

const Case kCases[] = {
    {"relay A", Row(1, 8, 30, "01111100", 1, 5), "01   08:30     05     0 1 1 1 1 1 0 0    1 0"},
    {"relay B", Row(12, 17, 5, "10000001", 2, 12), "12   17:05     12     1 0 0 0 0 0 0 1    0 1"},
    {"no relay", Row(32, 0, 0, "11111111", 0, 0), "32   00:00     00     1 1 1 1 1 1 1 1    0 0"},
    {"another relay", Row(3, 23, 59, "00000000", 3, 99),
     "03   23:59     99     0 0 0 0 0 0 0 0    0 0"},
    {"numbers of three digits, flags of another text", Row(4, 100, -1, "0x", 1, 255),
     "04   99:00     99     0 0 0 0 0 0 0 0    1 0"},
    {"more flags than days", Row(6, 7, 45, "0111110011111111", 2, 3),
     "06   07:45     03     0 1 1 1 1 1 0 0    0 1"},
};

TEST(RingLine, HasItsFieldsInFixedColumns)
{
    for (const Case& test : kCases)
        EXPECT_EQ(RingLine(test.row).toStdString(), test.line) << test.name;
}

TEST(RingLine, OfAnEmptyPositionHasTheSameColumns)
{
    EXPECT_EQ(EmptyRingLine(7).toStdString(), "07   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_EQ(EmptyRingLine(32).size(), 44);
}

TEST(RingLine, IsCutIntoItsFields)
{
    EXPECT_EQ(CutRingLine(QStringLiteral("01   08:30     05     0 1 1 1 1 1 0 0    1 0")),
              Row(1, 8, 30, "01111100", 1, 5));
    EXPECT_EQ(CutRingLine(QStringLiteral("32   23:59     99     1 0 0 0 0 0 0 1    0 1")),
              Row(32, 23, 59, "10000001", 2, 99));
    EXPECT_EQ(
        CutRingLine(QStringLiteral("32   23:59     99     1 0 0 0 0 0 0 1    1 1")).NumeroRele, 1);
    EXPECT_EQ(CutRingLine(QStringLiteral("05")), Row(5, 0, 0, "00000000", 0, 0));
}

TEST(RingLines, AreTheRowsInTheirOrderAndTheUnusedPositionsBehindThem)
{
    const QStringList lines =
        RingLines({Row(9, 1, 2, "00000001", 1, 3), Row(2, 4, 5, "10000000", 2, 6)});
    ASSERT_EQ(lines.size(), 32);
    EXPECT_EQ(lines[0].toStdString(), "09   01:02     03     0 0 0 0 0 0 0 1    1 0");
    EXPECT_EQ(lines[1].toStdString(), "02   04:05     06     1 0 0 0 0 0 0 0    0 1");
    EXPECT_EQ(lines[2].toStdString(), "01   00:00     00     0 0 0 0 0 0 0 0    0 0");
    EXPECT_EQ(lines[3].left(2).toStdString(), "03");
    EXPECT_EQ(lines[9].left(2).toStdString(), "10");
    EXPECT_EQ(lines[31].left(2).toStdString(), "32");
}

TEST(RingLines, EveryPositionStandsThereOnce)
{
    // Two rows of one position, and positions that are none.
    const QStringList lines =
        RingLines({Row(5, 8, 0, "01000000", 1, 1), Row(5, 9, 0, "01000000", 1, 1),
                   Row(0, 10, 0, "01000000", 1, 1), Row(33, 11, 0, "01000000", 1, 1)});
    ASSERT_EQ(lines.size(), 32);
    EXPECT_EQ(lines[0].toStdString(), "05   08:00     01     0 1 0 0 0 0 0 0    1 0");
    QStringList positions;
    for (const QString& line : lines) positions << line.left(2);
    positions.removeDuplicates();
    EXPECT_EQ(positions.size(), 32);
}

TEST(RingColumns, ShowSetDaysAsInitialsAndSetRelaysAsLetters)
{
    EXPECT_EQ(RingColumnTexts(QStringLiteral("01   08:30     05     0 1 1 1 1 1 0 0    1 0"))
                  .join(u' ')
                  .toStdString(),
              "01 08:30 05 · L M M G V · · A ·");
    EXPECT_EQ(RingColumnTexts(QStringLiteral("02   09:00     10     1 0 0 0 0 0 1 1    0 1"))
                  .join(u' ')
                  .toStdString(),
              "02 09:00 10 D · · · · · S F · B");
}

}  // namespace
}  // namespace orlo
