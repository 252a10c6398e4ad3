#include "jet/file_name.h"

#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

TEST(FileName, DifferentCaseIsFound)
{
    const ScratchFolder folder;
    folder.Write("NIMBO.MDB", {});
    EXPECT_EQ(FindFile(folder.Path() / "nimbo.mdb"), folder.Path() / "NIMBO.MDB");
}

TEST(FileName, ExactNameComesFirst)
{
    const ScratchFolder folder;
    folder.Write("NIMBO.MDB", {});
    folder.Write("nimbo.mdb", {});
    folder.Write("Nimbo.mdb", {});
    EXPECT_EQ(FindFile(folder.Path() / "nimbo.mdb"), folder.Path() / "nimbo.mdb");
    EXPECT_EQ(FindFile(folder.Path() / "nimbO.mdb"), folder.Path() / "NIMBO.MDB");
}

TEST(FileName, OtherNamesAreNotTaken)
{
    const ScratchFolder folder;
    folder.Write("nimbo.mdb.bak", {});
    EXPECT_EQ(FindFile(folder.Path() / "nimbo.mdb"), folder.Path() / "nimbo.mdb");
    EXPECT_EQ(FindFile(folder.Path() / "missing" / "nimbo.mdb"),
              folder.Path() / "missing" / "nimbo.mdb");
}

TEST(FileName, DatabaseOpensByIt)
{
    const ScratchFolder folder;
    folder.Write("NIMBO.MDB", ReadFile(Sample("nimbo-empty-97.mdb")));
    EXPECT_NE(Database::Open(folder.Path() / "Nimbo.mdb"), nullptr);
}

}  // namespace

}  // namespace jet::test
