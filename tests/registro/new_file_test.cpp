#include "registro/new_file.h"

#include "registro/failure.h"
#include "tests/support/file_size_limit.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <vector>

namespace
{

/// How long the files were that have been synced, and whether syncing works.
std::vector<off_t> synced_lengths;
bool sync_fails = false;

}  // namespace

// Stands before the system's for all of this program.
extern "C" int fsync(int descriptor)
{
    struct stat status {
    };
    fstat(descriptor, &status);
    synced_lengths.push_back(status.st_size);
    errno = EIO;
    return sync_fails ? -1 : 0;
}

namespace orlo::registro
{
namespace
{

class NewFile : public ::testing::Test
{
protected:
    NewFile() { synced_lengths.clear(); }
    ~NewFile() override { sync_fails = false; }

    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("Configurazione.ini"));
};

TEST_F(NewFile, IsSyncedOnceItIsWhole)
{
    WriteNewFile(name, "quattro");
    EXPECT_EQ(synced_lengths, std::vector<off_t>{7});
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "quattro");
}

TEST_F(NewFile, ThatCannotBeSyncedIsRemovedAndTold)
{
    sync_fails = true;
    try {
        WriteNewFile(name, "quattro");
        ADD_FAILURE() << "the failure was not told";
    } catch (const Failure& failure) {
        EXPECT_EQ(std::string(failure.what()), "Il file \"" + name.toStdString() +
                                                   "\" non si può scrivere (Input/output error).");
    }
    EXPECT_FALSE(QFile::exists(name));
}

TEST_F(NewFile, ThatDoesNotFitOnTheDiskLeavesNothing)
{
    {
        const orlo::testing::FileSizeLimit limit(4);
        EXPECT_THROW(WriteNewFile(name, "12345"), Failure);
    }
    EXPECT_FALSE(QFile::exists(name));
    WriteNewFile(name, "12345");
    EXPECT_EQ(QFile(name).size(), 5);
}

TEST_F(NewFile, IsNotWrittenOverAnother)
{
    WriteNewFile(name, "prima");
    EXPECT_THROW(WriteNewFile(name, "poi"), Failure);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "prima");
}

}  // namespace
}  // namespace orlo::registro
