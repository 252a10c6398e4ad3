#include "tests/end_to_end/kill_moments.h"
#include "tests/jetfile/jetfile_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

// The real program on a real disk, killed at any moment of a script whose every operation is a
// transaction: the file holds the first so many of them, whole.

namespace jetfile::test
{

namespace
{

using jet::test::ScratchFolder;
using orlo::end_to_end::ChildProcess;
using orlo::end_to_end::KillMoments;

/// With $ for a number and @ for a letter.
constexpr const char* kChanges = R"({"op": "insert", "table": "TERMINALI", "row": {"Terminale": $}}
{"op": "update", "table": "TERMINALI", "index": "TERMINALE", "key": [$], "set": {"Descrizione": "@@@@@@@@@@@@@@@@@@@@"}}
{"op": "add-column", "table": "TERMINALI", "column": {"name": "C$", "type": "integer"}}
{"op": "update", "table": "TERMINALI", "where": {}, "set": {"C$": $}}
{"op": "create-table", "table": "T$", "columns": [{"name": "N", "type": "long"}], "indexes": [{"name": "P", "columns": ["N"], "primary": true}]}
{"op": "delete", "table": "TERMINALI", "index": "TERMINALE", "key": [$]}
)";

/// Every kind of change, each making the content another one.
std::vector<std::string> Script()
{
    std::vector<std::string> lines;
    for (int i = 0; i < 4; ++i) {
        std::istringstream changes(kChanges);
        for (std::string line; std::getline(changes, line);) {
            std::ranges::replace(line, '@', static_cast<char>('a' + i));
            for (std::size_t at = 0; (at = line.find('$')) != std::string::npos;)
                line.replace(at, 1, std::to_string(1000 + i));
            lines.push_back(line);
        }
    }
    return lines;
}

/// All user tables as this program tells them, and one as another reader does.
struct State {
    std::string dump;
    std::string exported;

    bool operator==(const State&) const = default;
};

State StateOf(const std::filesystem::path& file)
{
    const Ended dump = Jetfile({"dump", file.string()});
    EXPECT_EQ(dump.status, 0) << dump.errors;
    return {dump.output, Exported(file, "TERMINALI")};
}

class Kills : public testing::TestWithParam<std::string>
{
protected:
    Kills() : sample_("nimbo-base-" + GetParam() + ".mdb"), file_(folder_.Path() / sample_)
    {
        const auto script = Script();
        Restore();
        states_.push_back(StateOf(file_));
        std::ofstream whole(folder_.Path() / "script");
        for (const std::string& line : script) {
            const Ended ended = Jetfile({"run", file_.string()}, line);
            EXPECT_EQ(ended.status, 0) << ended.errors;
            states_.push_back(StateOf(file_));
            whole << line << '\n';
        }
    }

    void Restore()
    {
        CopyOf(sample_, folder_);
        std::filesystem::remove(file_.string() + "-journal");
    }

    /// The program at work on the script; the shell gives its place to it.
    ChildProcess Start() const
    {
        return {"/bin/sh",
                {"-c", "exec \"$0\" run --each \"$1\" <script", JETFILE_PATH, sample_},
                {folder_.Path().string(), {"LC_ALL=C.UTF-8"}, {}}};
    }

    /// Number of operations that the file holds; the check of the whole file finds nothing.
    std::ptrdiff_t OperationsFound() const
    {
        const auto found = std::ranges::find(states_, StateOf(file_));
        EXPECT_NE(found, states_.end());
        const Ended check = Jetfile({"check", file_.string()});
        EXPECT_EQ(check.output + check.errors, "");
        return found - states_.begin();
    }

    /// Starts over and kills. False when the program had ended before.
    bool RunAndKill(KillMoments& moments)
    {
        Restore();
        ChildProcess process = Start();
        return moments.Kill(process);
    }

    ScratchFolder folder_;
    std::string sample_;
    std::filesystem::path file_;
    std::vector<State> states_;  ///< behind so many operations
};

TEST_P(Kills, LeaveAWholeNumberOfTransactions)
{
    Restore();
    const auto whole_run = orlo::end_to_end::TimeOf([&] { Start().Wait(); });
    ASSERT_EQ(OperationsFound() + 1, static_cast<std::ptrdiff_t>(states_.size()));

    KillMoments moments(/*seed=*/20261117, whole_run);
    std::set<std::ptrdiff_t> found;
    for (int missing = orlo::end_to_end::WantedKills(20); missing > 0 && !HasFailure();) {
        missing -= RunAndKill(moments) ? 1 : 0;
        found.insert(OperationsFound());
    }
    EXPECT_GT(found.size(), 3U) << "the kills all fell on the same moments";
}

INSTANTIATE_TEST_SUITE_P(Versions, Kills, testing::Values("97", "2000"),
                         [](const auto& version) { return "Jet" + version.param; });

}  // namespace

}  // namespace jetfile::test
