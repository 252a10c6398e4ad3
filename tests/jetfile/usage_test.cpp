#include "tests/jetfile/jetfile_process.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace jetfile::test
{

namespace
{

TEST(Usage, HelpIsAnAnswer)
{
    const Ended ended = Jetfile({"--help"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    for (const char* command : {"tables", "schema", "dump", "check", "run", "create"}) {
        EXPECT_NE(ended.output.find(std::string("jetfile ") + command), std::string::npos);
    }
}

TEST(Usage, WrongUsageEndsWithTwo)
{
    const std::vector<std::vector<std::string>> cases = {
        {},
        {"tables"},
        {"list", "a.mdb"},
        {"tables", "a.mdb", "T"},
        {"dump", "a.mdb", "T", "U"},
        {"dump", "a.mdb", "--each"},
        {"create", "a.mdb", "--each"},
        {"run", "a.mdb", "--jet3"},
        {"dump", "a.mdb", "\xFF"},
    };
    for (const auto& arguments : cases) {
        const Ended ended = Jetfile(arguments);
        EXPECT_EQ(ended.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(ended.output, "");
        EXPECT_NE(ended.errors.find("see jetfile --help"), std::string::npos);
    }
}

TEST(Usage, FailureEndsWithOneAndTheErrorsNumber)
{
    const jet::test::ScratchFolder folder;
    const Ended ended = Jetfile({"tables", (folder.Path() / "none.mdb").string()});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_TRUE(ended.errors.starts_with("jetfile: error 3024: ")) << ended.errors;
}

TEST(Usage, ScriptThatCannotBeReadIsAFailure)
{
    const jet::test::ScratchFolder folder;
    const auto file = CopyOf("nimbo-base-2000.mdb", folder);
    // A folder can be opened and not read.
    const std::string command = std::string("'") + JETFILE_PATH + "' run '" + file.string() +
                                "' </ 2>/dev/null; test $? -eq 1";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

TEST(Usage, OutputThatCannotBeWrittenIsAFailure)
{
    const std::string command = std::string("'") + JETFILE_PATH + "' dump '" +
                                jet::test::Sample("nimbo-full-2000.mdb").string() +
                                "' >/dev/full 2>/dev/null; test $? -eq 1";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace

}  // namespace jetfile::test
