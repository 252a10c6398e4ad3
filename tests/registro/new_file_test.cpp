#include "registro/new_file.h"

#include "registro/failure.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace orlo::registro
{
namespace
{

/// As long as it lives, no file may grow beyond so many bytes, as on a disk that is full.
class LongestFile
{
public:
    explicit LongestFile(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~LongestFile() { setrlimit(RLIMIT_FSIZE, &before_); }
    LongestFile(const LongestFile&) = delete;
    LongestFile& operator=(const LongestFile&) = delete;

private:
    rlimit before_{};
};

TEST(NewFile, ThatDoesNotFitOnTheDiskLeavesNothing)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("t.csv"));
    {
        const LongestFile limit(4);
        EXPECT_THROW(WriteNewFile(name, "12345"), Failure);
    }
    EXPECT_FALSE(QFile::exists(name));
    WriteNewFile(name, "12345");
    EXPECT_EQ(QFile(name).size(), 5);
}

TEST(NewFile, ReplacesNothing)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("t.csv"));
    WriteNewFile(name, "12345");
    EXPECT_THROW(WriteNewFile(name, "1"), Failure);
    EXPECT_EQ(QFile(name).size(), 5);
}

}  // namespace
}  // namespace orlo::registro
