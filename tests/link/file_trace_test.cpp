#include "link/file_trace.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

const QDateTime kTime(QDate(2026, 3, 5), QTime(14, 7, 9, 123));

TEST(TraceLine, ShowsTimePortDirectionBytesAndText)
{
    EXPECT_EQ(TraceLine(kTime, 2, '>',
                        "\x02\x84"
                        "32\xEB\r"),
              QStringLiteral("2026-03-05 14:07:09,123 COM2 >  02 84 33 32 EB 0D "
                             "                               |..32..|"));
}

TEST(FileTrace, AppendsOneLineForEverySixteenBytes)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("traccia.txt"));
    QString error;
    {
        FileTrace trace;
        ASSERT_TRUE(trace.Open(name, error));
        trace.Sent(1, "0123456789ABCDEFGH");
    }
    FileTrace trace;
    ASSERT_TRUE(trace.Open(name, error));
    trace.Received(1, "x");
    trace.Note(QStringLiteral("però"));

    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines[0].contains("COM1 >  30 31"));
    EXPECT_TRUE(lines[0].endsWith("|0123456789ABCDEF|"));
    EXPECT_TRUE(lines[1].endsWith("|GH|"));
    EXPECT_TRUE(lines[2].contains("COM1 <  78"));
    EXPECT_TRUE(lines[3].endsWith("però"));
}

TEST(FileTrace, SaysWhyItCannotBeOpened)
{
    FileTrace trace;
    QString error;
    EXPECT_FALSE(trace.Open(QStringLiteral("/there-is-no-such-folder/traccia.txt"), error));
    EXPECT_FALSE(error.isEmpty());
}

}  // namespace
}  // namespace orlo
