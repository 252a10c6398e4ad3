#include "tests/end_to_end/folder_watch.h"
#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

namespace fs = std::filesystem;

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Terminal 2 is an Orlo, which needs the component; terminal 4 is none.
class UnusableComponent : public testing::Test
{
protected:
    Installation installation;

    void SetUp() override { installation.Register({{.terminal = 4}, {.terminal = 2, .type = 1}}); }
    /// Neither terminal is done, and the reason is what the system says.
    void ExpectRefused(const std::string& library, const std::string& reason) const
    {
        const Ended ended = installation.Run({"--acquisisci", "2,4", "--componente", library});
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.errors,
                    AllOf(StartsWith(" 429 Il componente \"" + library + "\" non si può usare: "),
                          HasSubstr(reason), HasSubstr("\nTerminale 2 non acquisito: 429 "),
                          HasSubstr("\nTerminale 4 non acquisito: 429 ")));
        EXPECT_FALSE(installation.Has("nimbo.ldb"));
        EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
    }
};

TEST_F(UnusableComponent, ThatIsNotThereIsTheErrorOfAnObjectThatCannotBeCreated)
{
    ExpectRefused(installation.PathOf("manca.so"), "il file non c'è.\n");
}

TEST_F(UnusableComponent, ThatIsInAFolderWithoutPermissionIsToldSo)
{
    const fs::path folder = installation.PathOf("chiusa");
    fs::create_directory(folder);
    installation.Write("chiusa/componente.so", "");
    fs::permissions(folder, fs::perms::none);
    installation.HeedPermissions();
    ExpectRefused(folder / "componente.so", "Permission denied");
    fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(UnusableComponent, ThatIsALinkToItselfIsToldSo)
{
    const std::string link = installation.PathOf("cerchio.so");
    fs::create_symlink(link, link);
    ExpectRefused(link, "Too many levels of symbolic links");
}

TEST_F(UnusableComponent, ThatIsAFolderIsToldSo)
{
    ExpectRefused(installation.PathOf(""), "cannot read file data: Is a directory");
}

TEST_F(UnusableComponent, LeavesNoLockFileBehindTheWindow)
{
    installation.Write("testo.so", "questo è un testo");
    installation.ShowOffScreen();
    const FolderWatch folder(installation.PathOf(""), IN_OPEN);
    const auto window = installation.Start({"--componente", installation.PathOf("testo.so")});
    ASSERT_TRUE(folder.WaitFor("testo.so"));
    EXPECT_TRUE(installation.Has("nimbo.ldb"));
    window->Signal(SIGTERM);
    const Ended ended = window->Wait();
    EXPECT_LE(ended.status, 1) << "neither killed nor crashed";
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

constexpr char kShippedComponent[] = "/liborlodesk-componente.so";

TEST(Component, IsNeverOpenedForSerialTerminalsAlone)
{
    Installation installation;
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(VariedPunches(2));
    installation.NameLoadedLibraries();
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(installation.PunchLines().size(), 2U);
    EXPECT_THAT(ended.errors, HasSubstr("/libQt6Core.so")) << "the loader names what it opens";
    EXPECT_THAT(ended.errors, Not(HasSubstr(kShippedComponent)));
}

TEST(Component, IsOpenedForOneOrloAmongThemThoughNobodyAsksForIt)
{
    Installation installation;
    installation.Register({{.terminal = 4}, {.terminal = 2, .type = 1}});
    const auto line = installation.SimulateStrale(VariedPunches(2));
    installation.NameLoadedLibraries();
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.errors, HasSubstr(kShippedComponent));
}

TEST(Component, IsToldPortZeroWhenTheRegisterHasNone)
{
    const Installation installation;
    installation.Register({{.terminal = 6, .type = 1, .port = 0}});
    const Ended ended = installation.Run({"--acquisisci", "6"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "Terminale 6 non acquisito: Errore:98,COM0 non esiste\n");
}

TEST(Component, SerialTerminalsAloneNeedNone)
{
    const Installation installation;
    installation.Register({{.terminal = 4}});
    const auto line = installation.SimulateStrale(VariedPunches(2));
    const Ended ended =
        installation.Run({"--acquisisci", "4", "--componente", installation.PathOf("manca.so")});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(installation.PunchLines().size(), 2U);
}

}  // namespace
}  // namespace orlo::end_to_end
