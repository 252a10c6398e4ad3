#include "acquisition/punch_file.h"

#include "tests/support/file_size_limit.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orlo
{
namespace
{

using testing::LimitFileSize;

class PunchFileTest : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    QString name = folder.filePath(QStringLiteral("TIMBRAT.TXT"));

    QByteArray Content() const
    {
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void TearDown() override { LimitFileSize(RLIM_INFINITY); }
};

TEST_F(PunchFileTest, IsMadeWhenMissingAndAppendedTo)
{
    {
        PunchFile file;
        ASSERT_TRUE(file.Open(name));
        EXPECT_TRUE(file.Append("one\r\n"));
        EXPECT_TRUE(file.Sync());
    }
    PunchFile file;
    ASSERT_TRUE(file.Open(name));
    EXPECT_TRUE(file.Append("two\r\n"));
    EXPECT_TRUE(file.Sync());
    EXPECT_EQ(Content(), "one\r\ntwo\r\n");
}

TEST_F(PunchFileTest, SecuredRoomDoesNotShowInTheLength)
{
    {
        PunchFile file;
        ASSERT_TRUE(file.Open(name));
        EXPECT_TRUE(file.SecureRoom(100000));
        EXPECT_EQ(Content(), "");
        EXPECT_TRUE(file.Append("x\r\n"));
        EXPECT_TRUE(file.Sync());
        EXPECT_EQ(Content(), "x\r\n");
    }
    struct stat status {
    };
    ASSERT_EQ(stat(QFile::encodeName(name).constData(), &status), 0);
    EXPECT_LT(status.st_blocks * 512, 50000) << "room that was not used is given back";
}

TEST_F(PunchFileTest, MissingRoomIsToldBeforeAnythingIsWritten)
{
    PunchFile file;
    ASSERT_TRUE(file.Open(name));
    EXPECT_FALSE(file.SecureRoom(std::size_t{1} << 60U)) << "more than any disk has";
    EXPECT_FALSE(file.Error().isEmpty());
    EXPECT_EQ(Content(), "");
}

TEST_F(PunchFileTest, AnswerThatDoesNotFitIsCutBackWhole)
{
    PunchFile file;
    ASSERT_TRUE(file.Open(name));
    ASSERT_TRUE(file.Append("before\r\n"));
    ASSERT_TRUE(file.Sync());
    LimitFileSize(20);
    EXPECT_FALSE(file.Append(std::string(100, 'x')));
    EXPECT_EQ(file.Error(), QStringLiteral("il file è troppo grande"));
    LimitFileSize(RLIM_INFINITY);
    EXPECT_EQ(Content(), "before\r\n");
}

TEST_F(PunchFileTest, WithdrawnFileIsNotTakenForStored)
{
    PunchFile file;
    ASSERT_TRUE(file.Open(name));
    ASSERT_TRUE(file.Append("lost\r\n"));
    ASSERT_TRUE(QFile::remove(name));
    EXPECT_FALSE(file.Sync());
    EXPECT_FALSE(file.Error().isEmpty());
}

TEST_F(PunchFileTest, ReplacedFileIsNotTakenForStored)
{
    PunchFile file;
    ASSERT_TRUE(file.Open(name));
    ASSERT_TRUE(file.Append("lost\r\n"));
    ASSERT_TRUE(QFile::rename(name, name + u'x'));
    QFile other(name);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    EXPECT_FALSE(file.Sync());
}

TEST_F(PunchFileTest, FullDeviceIsAnError)
{
    PunchFile file;
    ASSERT_TRUE(file.Open(QStringLiteral("/dev/full")));
    EXPECT_FALSE(file.Append("x\r\n"));
    EXPECT_EQ(file.Error(), QStringLiteral("il disco è pieno"));
}

TEST_F(PunchFileTest, FolderThatIsMissingIsAnError)
{
    PunchFile file;
    EXPECT_FALSE(file.Open(folder.filePath(QStringLiteral("no/TIMBRAT.TXT"))));
    EXPECT_EQ(file.Error(), QStringLiteral("il file o la cartella non esiste"));
}

}  // namespace
}  // namespace orlo
