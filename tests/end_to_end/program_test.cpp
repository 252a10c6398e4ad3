#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::StartsWith;

class Program : public testing::Test
{
protected:
    const Installation installation;
    const std::unique_ptr<SimulatedLine> line = installation.SimulateStrale(VariedPunches(2));

    void SetUp() override { installation.Register({{.terminal = 4}}); }

    std::string Folder() const { return installation.PathOf(""); }

    void ExpectAcquired(const Ended& ended) const
    {
        EXPECT_EQ(ended.status, 0) << ended.errors;
        EXPECT_EQ(installation.PunchLines().size(), 2U);
    }
    void ExpectNoDatabase(const Ended& ended) const
    {
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.errors, StartsWith("Terminale 4 non acquisito: "));
        EXPECT_EQ(line->Commands(), "");
    }
};

TEST_F(Program, LockFileRefusesTheStartAndIsLeftAlone)
{
    installation.Write("nimbo.ldb", "altro utente");
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors,
              "Attenzione: Attenzione! il programma è già aperto da un altro "
              "utente/applicazione. Non è possibile continuare.\n"
              "Se nessuno lo sta usando, per esempio dopo un arresto improvviso del PC, "
              "cancellare il file \"" +
                  installation.PathOf("nimbo.ldb") +
                  "\" e riavviare il programma.\n"
                  "Terminale 4 non acquisito: Il database è già aperto da un altro utente o "
                  "programma.\n");
    EXPECT_EQ(installation.Read("nimbo.ldb"), "altro utente");
    EXPECT_EQ(line->Commands(), "");
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
}

TEST_F(Program, LockFileIsFoundWhateverTheCaseOfItsName)
{
    installation.Write("NIMBO.LDB", "");
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 1);
    EXPECT_TRUE(installation.Has("NIMBO.LDB"));
}

TEST_F(Program, LeavesNoLockFileBehind)
{
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

TEST_F(Program, RegisterIsNotChangedByAnAcquisition)
{
    for (const Jet version : {Jet::k3, Jet::k4}) {
        installation.Register({{.terminal = 4}}, version);
        const std::string before = installation.Read("nimbo.mdb");
        EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
        EXPECT_EQ(installation.Read("nimbo.mdb"), before);
    }
}

TEST_F(Program, MissingDatabaseIsNotDoneAndSaysWhy)
{
    fs::remove(installation.PathOf("nimbo.mdb"));
    const Ended ended = installation.Run({"--acquisisci", "4"});
    ExpectNoDatabase(ended);
    EXPECT_THAT(ended.errors, HasSubstr("3024"));
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

TEST_F(Program, FileThatIsNoDatabaseIsToldAndNotDone)
{
    installation.Write("nimbo.mdb", std::string(8192, 'x'));
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("Terminale 4 non acquisito: "));
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
}

TEST_F(Program, DatabaseIsFoundWhateverTheCaseOfItsName)
{
    fs::rename(installation.PathOf("nimbo.mdb"), installation.PathOf("NIMBO.MDB"));
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
}

TEST_F(Program, ConfigurationKeyWithItsColonElsewhereIsIgnored)
{
    installation.Write("Configurazione.ini", "Databases:" + Folder() + "\n");
    fs::rename(installation.PathOf("nimbo.mdb"), installation.PathOf("altro.mdb"));
    ExpectNoDatabase(installation.Run({"--acquisisci", "4"}));
}

TEST_F(Program, LastOfTwoConfiguredFoldersHolds)
{
    installation.Write("Configurazione.ini",
                       "Databases          :/da/nessuna/parte/\n"
                       "Databases          :  " +
                           Folder() + "  \n");
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
}

TEST_F(Program, ConfigurationMayBeUtf8OrWindows1252)
{
    // The folder is called "città", in UTF-8 on the disk.
    fs::create_directory(installation.PathOf("citt\xC3\xA0"));
    fs::rename(installation.PathOf("nimbo.mdb"), installation.PathOf("citt\xC3\xA0/nimbo.mdb"));
    installation.Write("Configurazione.ini",
                       "Databases          :" + Folder() + "citt\xC3\xA0/\r\n");
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
    installation.Write("Configurazione.ini", "Databases          :" + Folder() + "citt\xE0/\r\n");
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
}

TEST_F(Program, MissingConfigurationMeansTheWorkingFolder)
{
    fs::remove(installation.PathOf("Configurazione.ini"));
    ExpectAcquired(installation.Run({"--acquisisci", "4"}));
}

TEST_F(Program, WrongUsageIsToldWithoutADisplayAndEndsWith2)
{
    const std::vector<std::vector<std::string>> wrong = {
        {"--acquisisci", "0"},
        {"--acquisisci", "33"},
        {"--acquisisci", "4,quattro"},
        {"--acquisisci", ""},
        {"--acquisisci"},
        {"--file", "a.txt"},
        {"--boh"},
        {"--acquisisci", "4", "di troppo"},
        {"--acquisisci", "4", "--boh"},
        {"--acquisisci", "4", "--tema", "verde"},
        {"--acquisisci", "4", "--traccia", "/da/nessuna/parte"},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const Ended ended = installation.Run(arguments);
        EXPECT_EQ(ended.status, 2) << testing::PrintToString(arguments);
        EXPECT_NE(ended.errors, "");
        EXPECT_EQ(ended.output, "");
    }
    EXPECT_EQ(line->Commands(), "");
}

TEST_F(Program, HelpIsInItalianAndNeedsNoDisplay)
{
    for (const char* option : {"--help", "-h"}) {
        const Ended ended = installation.RunBare({option});
        EXPECT_EQ(ended.status, 0);
        EXPECT_EQ(ended.errors, "");
        for (const char* text : {"Acquisisce questi terminali", "--configurazione", "--com4",
                                 "--traccia", "Mostra questo aiuto."})
            EXPECT_THAT(ended.output, HasSubstr(text));
        for (const char* english : {"Usage", "Options", "Displays"})
            EXPECT_THAT(ended.output, Not(HasSubstr(english)));
    }
}

}  // namespace
}  // namespace orlo::end_to_end
