#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

namespace fs = std::filesystem;

using testing::HasSubstr;

/// What the register lies on: a disk that can only be read, one without locks, one from Windows.
class Medium : public testing::Test
{
protected:
    Medium()
    {
        fs::create_directory(Archive());
        installation.Register({{.terminal = 4}});
    }
    ~Medium() override { fs::permissions(Archive(), fs::perms::owner_all); }

    std::string Archive() const { return installation.PathOf("archivio"); }
    /// Puts the register there under that name, the only one that the configuration leads to.
    void Archive(const std::string& name) const
    {
        fs::rename(installation.PathOf("nimbo.mdb"), Archive() + "/" + name);
        installation.Write("Configurazione.ini", "Databases          :" + Archive() + "/\n");
    }
    Ended Acquire() const { return installation.Run({"--acquisisci", "4"}); }

    Installation installation;
    const std::unique_ptr<SimulatedLine> line = installation.SimulateStrale(VariedPunches(2));
};

TEST_F(Medium, ThatCanOnlyBeReadLetsTerminalsBeAcquired)
{
    Archive("nimbo.mdb");
    const std::string before = installation.Read("archivio/nimbo.mdb");
    fs::permissions(Archive() + "/nimbo.mdb", fs::perms::owner_read);
    fs::permissions(Archive(), fs::perms::owner_read | fs::perms::owner_exec);
    installation.HeedPermissions();
    const Ended ended = Acquire();
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(installation.PunchLines().size(), 2U);

    const Ended change = installation.RunRegistro({"modifica", Archive(), "4", "--tentativi", "9"});
    EXPECT_EQ(change.status, 1);
    EXPECT_THAT(change.errors, HasSubstr("Accesso negato al database"));
    EXPECT_TRUE(installation.Read("archivio/nimbo.mdb") == before);
}

TEST_F(Medium, WithoutLocksIsNotUsedAndSaysWhy)
{
    const std::string before = installation.Read("nimbo.mdb");
    for (const int error : {ENOLCK, EOPNOTSUPP}) {
        installation.FailLocks(error);
        const Ended ended = Acquire();
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.errors, HasSubstr("Terminale 4 non acquisito: 3050 Il database non può "
                                            "essere bloccato ("));
        EXPECT_EQ(line->Commands(), "");
        for (const auto& command : {std::vector<std::string>{"elenca", "."},
                                    {"modifica", ".", "4", "--tentativi", "9"}}) {
            const Ended refused = installation.RunRegistro(command);
            EXPECT_EQ(refused.status, 1);
            EXPECT_THAT(refused.errors, HasSubstr("Il database non può essere bloccato ("));
        }
        EXPECT_TRUE(installation.Read("nimbo.mdb") == before);
        EXPECT_FALSE(installation.Has("nimbo.ldb"));
        EXPECT_FALSE(installation.Has("nimbo.mdb-journal"));
    }
}

TEST_F(Medium, FromWindowsMayNameItsFilesInAnyCase)
{
    for (const char* name : {"NIMBO.MDB", "Nimbo.Mdb"}) {
        Archive(name);
        EXPECT_EQ(Acquire().errors, "");
        fs::rename(Archive() + "/" + name, installation.PathOf("nimbo.mdb"));
    }
    Archive("NIMBO.MDB");
    fs::rename(installation.PathOf("Configurazione.ini"),
               installation.PathOf("CONFIGURAZIONE.INI"));
    EXPECT_EQ(Acquire().errors, "");
    EXPECT_EQ(installation.PunchLines().size(), 2U);

    installation.Write("archivio/NIMBO.LDB", "");
    const Ended locked = Acquire();
    EXPECT_EQ(locked.status, 1);
    EXPECT_THAT(locked.errors, HasSubstr("cancellare il file \"" + Archive() + "/NIMBO.LDB\""));
}

}  // namespace
}  // namespace orlo::end_to_end
