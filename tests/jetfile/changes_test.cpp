#include "jet/database.h"
#include "tests/jetfile/jetfile_process.h"

#include <gtest/gtest.h>

namespace jetfile::test
{

namespace
{

using jet::test::ScratchFolder;

class Changes : public testing::TestWithParam<std::string>
{
protected:
    std::filesystem::path Copy() const
    {
        return CopyOf("nimbo-base-" + GetParam() + ".mdb", folder_);
    }

    ScratchFolder folder_;
};

/// The terminals as the other reader tells them, without the line of names.
std::string Terminals(const std::filesystem::path& file)
{
    const std::string text = Exported(file, "TERMINALI");
    return text.substr(text.find('\n') + 1);
}

void ExpectSound(const std::filesystem::path& file)
{
    const Ended ended = Jetfile({"check", file.string()});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output + ended.errors, "");
}

// The samples' rows differ between the versions.
constexpr const char* kEmptied = R"({"op": "delete", "table": "TERMINALI", "where": {}})";

TEST_P(Changes, RowsAreInsertedUpdatedAndDeleted)
{
    const auto file = Copy();
    const Ended ended = Jetfile({"run", file.string()}, std::string(kEmptied) + R"(
{"op": "insert", "table": "Terminali", "row": {"Terminale": 7, "Descrizione": "Perch\u00e9", "Attivo": true}}
{"op": "insert", "table": "Terminali", "row": {"Terminale": 8, "Funzionamento": 1, "Velocita": 9600}}

{"op": "insert", "table": "Terminali", "row": {"Terminale": 9, "Funzionamento": 1}}
{"op": "update", "table": "TERMINALI", "index": "terminale", "key": [7], "set": {"Porta": 3}}
{"op": "update", "table": "TERMINALI", "where": {"Funzionamento": 1, "Attivo": false}, "set": {"Modalita": 2}}
{"op": "delete", "table": "TERMINALI", "where": {"Terminale": 9, "Velocita": null}}
{"op": "delete", "table": "TERMINALI", "index": "TERMINALE", "key": [10]}
)");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(ended.output, "8 operations, 12 rows\n");
    EXPECT_EQ(Terminals(file),
              "7,,\"Perché\",1,,3,,\n"
              "8,1,,0,2,,,9600\n");
    ExpectSound(file);
}

TEST_P(Changes, AreAllMadeOrNone)
{
    const auto file = Copy();
    const std::string before = Terminals(file);
    const Ended ended = Jetfile({"run", file.string()},
                                R"({"op": "insert", "table": "TERMINALI", "row": {"Terminale": 4}}
{"op": "add-column", "table": "TERMINALI", "column": {"name": "TIPO", "type": "integer"}}
{"op": "insert", "table": "TERMINALI", "row": {"Terminale": 1}}
)");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_TRUE(ended.errors.starts_with("jetfile: line 3: error 3022: ")) << ended.errors;
    EXPECT_EQ(Terminals(file), before);
    ExpectSound(file);
}

TEST_P(Changes, EachByItselfStayDoneUpToTheOneThatFails)
{
    const auto file = Copy();
    const Ended ended = Jetfile({"run", file.string(), "--each"}, std::string(kEmptied) + R"(
{"op": "insert", "table": "TERMINALI", "row": {"Terminale": 4}}
{"op": "update", "table": "TERMINALI", "where": {}, "set": {"Porta": 1, "Velocita": "fast"}}
{"op": "insert", "table": "TERMINALI", "row": {"Terminale": 6}}
)");
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.errors.starts_with("jetfile: line 3: error 3421: ")) << ended.errors;
    EXPECT_EQ(ended.output, "2 operations, 6 rows\n") << "what stays done";
    EXPECT_EQ(Terminals(file), "4,,,0,,,,\n");
    ExpectSound(file);
}

TEST_P(Changes, EachByItselfTellsWhatIsDoneAlsoBeforeTextThatIsNoJson)
{
    const auto file = Copy();
    const Ended ended = Jetfile({"run", file.string(), "--each"}, std::string(kEmptied) + "\n{\n");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "1 operations, 5 rows\n");
    EXPECT_TRUE(ended.errors.starts_with("jetfile: line 2, column ")) << ended.errors;
    EXPECT_EQ(Terminals(file), "");
}

TEST_P(Changes, TextThatIsNoJsonEndsWithItsPlaceAndChangesNothing)
{
    const auto file = Copy();
    const std::string before = Terminals(file);
    const Ended ended = Jetfile({"run", file.string()}, std::string(kEmptied) + "\n{\"op\" 1}\n");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "jetfile: line 2, column 7: expected :\n");
    EXPECT_EQ(Terminals(file), before);
}

TEST_P(Changes, AColumnIsAddedAndFilled)
{
    const auto file = Copy();
    const Ended ended = Jetfile({"run", file.string()}, std::string(kEmptied) + R"(
{"op": "insert", "table": "TERMINALI", "row": {"Terminale": 4}}
{"op": "add-column", "table": "TERMINALI", "column": {"name": "Modem", "type": "text", "size": 3}}
{"op": "insert", "table": "TERMINALI", "row": {"Terminale": 5, "Modem": "ATZ"}}
)");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(Terminals(file), "4,,,0,,,,,\n5,,,0,,,,,\"ATZ\"\n");
    ExpectSound(file);
}

TEST_P(Changes, WhileAnotherProgramWritesTheFileCanOnlyBeRead)
{
    const auto file = Copy();
    const auto other = jet::Database::Open(file, jet::OpenMode::ReadWrite);
    const Ended refused = Jetfile({"run", file.string()}, kEmptied);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors,
              "jetfile: error 3045: Another program has the file open for changes. Until it "
              "closes it, the file can only be read.\n");
    EXPECT_EQ(Jetfile({"tables", file.string()}).output, "TERMINALI 5\n");
}

INSTANTIATE_TEST_SUITE_P(BothVersions, Changes, testing::Values("97", "2000"),
                         [](const auto& version) { return "Access" + version.param; });

class NewFile : public testing::TestWithParam<std::vector<std::string>>
{
};

constexpr const char* kTable =
    R"({"op": "create-table", "table": "Prove", "columns": [{"name": "N", "type": "long"}, {"name": "T", "type": "text", "size": 20}, {"name": "B", "type": "byte"}, {"name": "C", "type": "currency"}, {"name": "S", "type": "single"}, {"name": "D", "type": "double"}, {"name": "Q", "type": "datetime"}, {"name": "Y", "type": "yesno"}, {"name": "G", "type": "guid"}, {"name": "R", "type": "binary", "size": 8}], "indexes": [{"name": "P", "columns": ["N"], "primary": true}, {"name": "I", "columns": [["T", "desc"]]}]}
)";

// The two forms of a row: what the dump says can be inserted as it stands.
constexpr const char* kRow =
    R"({"N": 1, "T": "Perché", "B": 255, "C": "-0.5000", "S": 0.1, "D": 1e+100, "Q": "2004-02-29 13:05:09", "Y": true, "G": "{00112233-4455-6677-8899-aabbccddeeff}", "R": "0x41ff02"})";

TEST_P(NewFile, TakesTablesAndRowsOfEveryType)
{
    const ScratchFolder folder;
    const auto file = folder.Path() / "new.mdb";
    std::vector<std::string> create{"create", file.string()};
    create.insert(create.end(), GetParam().begin(), GetParam().end());
    ASSERT_EQ(Jetfile(create).status, 0);
    ExpectSound(file);

    const std::string insert =
        R"({"op": "insert", "table": "Prove", "row": )" + std::string(kRow) + "}\n";
    const Ended ended = Jetfile({"run", file.string()}, kTable + insert);
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(ended.output, "2 operations, 1 rows\n");

    const std::string dump = Jetfile({"dump", file.string()}).output;
    EXPECT_EQ(dump.substr(dump.find('\n') + 1),
              R"({"in": "Prove", "row": )" + std::string(kRow) + "}\n");
    EXPECT_NE(dump.find(R"({"name": "I", "kind": "plain", "unique": false, )"
                        R"("ignorenull": false, "required": false, "columns": [["T", "desc"]]})"),
              std::string::npos);
    EXPECT_EQ(Exported(file, "Prove"),
              "N,T,B,C,S,D,Q,Y,G,R\n"
              "1,\"Perché\",255,-0.5000,0.1,1e+100,\"2004-02-29 13:05:09\",1,"
              "\"{00112233-4455-6677-8899AABBCCDDEEFF}\",\"A\xFF\x02\"\n");
    ExpectSound(file);
}

TEST_P(NewFile, DoesNotReplaceAFile)
{
    const ScratchFolder folder;
    const auto file = CopyOf("nimbo-base-97.mdb", folder);
    std::vector<std::string> create{"create", file.string()};
    create.insert(create.end(), GetParam().begin(), GetParam().end());
    const Ended ended = Jetfile(create);
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.errors.starts_with("jetfile: error 3204: ")) << ended.errors;
    EXPECT_EQ(jet::test::ReadFile(file),
              jet::test::ReadFile(jet::test::Sample("nimbo-base-97.mdb")));
}

TEST(NewFileVersion, IsTheOneAskedFor)
{
    const ScratchFolder folder;
    const auto jet4 = folder.Path() / "4.mdb";
    const auto jet3 = folder.Path() / "3.mdb";
    ASSERT_EQ(Jetfile({"create", jet4.string()}).status, 0);
    ASSERT_EQ(Jetfile({"create", jet3.string(), "--jet3"}).status, 0);
    // The version's byte of the header.
    EXPECT_EQ(jet::test::ReadFile(jet4).at(20), 1);
    EXPECT_EQ(jet::test::ReadFile(jet3).at(20), 0);
}

INSTANTIATE_TEST_SUITE_P(BothVersions, NewFile,
                         testing::Values(std::vector<std::string>{},
                                         std::vector<std::string>{"--jet3"}),
                         [](const auto& options) {
                             return options.param.empty() ? "Jet4" : "Jet3";
                         });

}  // namespace

}  // namespace jetfile::test
