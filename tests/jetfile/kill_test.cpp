#include "tests/end_to_end/kill_moments.h"
#include "tests/jetfile/jetfile_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

// The real program on a real disk, killed at any moment of a script whose every operation is a
// transaction: the file holds the first so many of them, whole.

namespace jetfile::test
{

namespace
{

using jet::test::ScratchFolder;
using orlo::end_to_end::ChildProcess;
using orlo::end_to_end::KillMoments;

/// Every kind of change, each making the content another one.
std::vector<std::string> Script()
{
    std::vector<std::string> lines;
    for (int i = 0; i < 6; ++i) {
        const std::string number = std::to_string(1000 + i);
        const std::string long_text(20, static_cast<char>('a' + i));
        lines.push_back(R"({"op": "insert", "table": "TERMINALI", "row": {"Terminale": )" + number +
                        "}}");
        lines.push_back(R"({"op": "update", "table": "TERMINALI", "index": "TERMINALE", "key": [)" +
                        number + R"(], "set": {"Descrizione": ")" + long_text + R"("}})");
        lines.push_back(R"({"op": "add-column", "table": "TERMINALI", "column": {"name": "C)" +
                        number + R"(", "type": "integer"}})");
        lines.push_back(R"({"op": "update", "table": "TERMINALI", "where": {}, "set": {"C)" +
                        number + R"(": )" + number + "}}");
        lines.push_back(R"({"op": "create-table", "table": "T)" + number +
                        R"(", "columns": [{"name": "N", "type": "long"}],)" +
                        R"( "indexes": [{"name": "P", "columns": ["N"], "primary": true}]})");
        lines.push_back(R"({"op": "delete", "table": "TERMINALI", "index": "TERMINALE", "key": [)" +
                        number + "]}");
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

    ScratchFolder folder_;
    std::string sample_;
    std::filesystem::path file_;
    std::vector<State> states_;  ///< behind so many operations
};

TEST_P(Kills, LeaveAWholeNumberOfTransactions)
{
    Restore();
    const auto whole_run = orlo::end_to_end::TimeOf([&] { Start().Wait(); });
    ASSERT_EQ(StateOf(file_), states_.back());

    constexpr unsigned kSeed = 20261117;
    KillMoments moments(kSeed, whole_run);
    const int wanted = orlo::end_to_end::WantedKills(20);
    std::set<std::ptrdiff_t> found_states;
    int kills = 0;
    for (int run = 0; kills < wanted; ++run) {
        ASSERT_LT(run, 20 * wanted) << "nearly every run ends before it is killed";
        Restore();
        ChildProcess process = Start();
        kills += moments.Kill(process) ? 1 : 0;
        const auto found = std::ranges::find(states_, StateOf(file_));
        ASSERT_NE(found, states_.end()) << "run " << run << " of seed " << kSeed;
        found_states.insert(found - states_.begin());
        const Ended check = Jetfile({"check", file_.string()});
        ASSERT_EQ(check.output + check.errors, "") << "run " << run << " of seed " << kSeed;
    }
    EXPECT_GT(found_states.size(), 3U) << "the kills all fell on the same moments";
}

INSTANTIATE_TEST_SUITE_P(Versions, Kills, testing::Values("97", "2000"),
                         [](const auto& version) { return "Jet" + version.param; });

}  // namespace

}  // namespace jetfile::test
