#include "jet/database.h"
#include "tests/end_to_end/folder_watch.h"
#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/journal_pipe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace orlo::end_to_end
{
namespace
{

using testing::HasSubstr;

const char kRemoval[] = R"({"op": "delete", "table": "TERMINALI", "where": {}})"
                        "\n";

/// Several programs that want the same register.
class RegisterUsers : public testing::Test
{
protected:
    RegisterUsers() { installation.Register({{.terminal = 4}}); }

    void ExpectChangesRefused() const
    {
        const std::string before = installation.Read("nimbo.mdb");
        installation.Write("t.csv", "Terminale;TIPO\n5;Orlo\n");
        const std::vector<std::string> changes[] = {
            {"aggiungi", ".", "9", "--tipo", "Strale"},
            {"modifica", ".", "4", "--tentativi", "9"},
            {"rimuovi", ".", "4"},
            {"importa", ".", "t.csv"},
        };
        for (const std::vector<std::string>& change : changes) {
            const Ended ended = installation.RunRegistro(change);
            EXPECT_EQ(ended.status, 1) << change.front();
            EXPECT_THAT(ended.errors,
                        HasSubstr("Il registro è in uso: c'è il file \"./nimbo.ldb\""));
        }
        const Ended ended = installation.RunJetfile({"run", "nimbo.mdb"}, kRemoval);
        EXPECT_EQ(ended.status, 1);
        EXPECT_THAT(ended.errors, HasSubstr("error 3045: "));
        EXPECT_TRUE(installation.Read("nimbo.mdb") == before);
    }

    void ExpectLookingWorks() const
    {
        for (const char* command : {"elenca", "esporta"})
            EXPECT_THAT(installation.RunRegistro({command, "."}).output, HasSubstr("Strale"));
        EXPECT_EQ(installation.RunRegistro({"verifica", "."}).output, "Il file è integro.\n");
        EXPECT_THAT(installation.RunJetfile({"tables", "nimbo.mdb"}).output,
                    HasSubstr("TERMINALI 8\n"));
        EXPECT_THAT(installation.RunJetfile({"dump", "nimbo.mdb"}).output,
                    HasSubstr("\"Terminale\": 4"));
        const Ended check = installation.RunJetfile({"check", "nimbo.mdb"});
        EXPECT_EQ(check.status, 0);
        EXPECT_EQ(check.output + check.errors, "");
    }

    Installation installation;
};

TEST_F(RegisterUsers, TheWindowKeepsChangesOutAndLetsOthersLook)
{
    installation.ShowOffScreen();
    const FolderWatch folder(installation.PathOf(""));
    const auto window = installation.Start({});
    ASSERT_TRUE(folder.WaitFor("nimbo.ldb"));
    ExpectChangesRefused();
    ExpectLookingWorks();
    EXPECT_TRUE(installation.Has("nimbo.ldb"));
    window->Signal(SIGTERM);
    EXPECT_LE(window->Wait().status, 1);
    EXPECT_EQ(installation.RunRegistro({"rimuovi", ".", "4"}).status, 0) << "free again";
}

// The program is stopped while the others have their turn: they may take longer than an answer.
TEST_F(RegisterUsers, AnUnattendedAcquisitionKeepsChangesOutAndLetsOthersLook)
{
    JournalPipe journal(installation.PathOf("com1.registro"));
    const auto line = installation.SimulateStrale(VariedPunches(25), {"--attesa", "500"});
    const auto program = installation.Start({"--acquisisci", "4"});
    ASSERT_TRUE(journal.WaitFor("33OK"));
    program->Signal(SIGSTOP);
    ExpectChangesRefused();
    ExpectLookingWorks();
    program->Signal(SIGCONT);
    const Ended ended = program->Wait();
    EXPECT_LE(ended.status, 1) << ended.errors;
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_EQ(installation.Run({"--acquisisci", "4"}).status, 0);
    EXPECT_EQ(installation.PunchLines().size(), 25U);
}

TEST_F(RegisterUsers, AStartBesideAnotherWriterSaysSoAndChangesNothing)
{
    const auto writer =
        jet::Database::Open(installation.PathOf("nimbo.mdb"), jet::OpenMode::ReadWrite);
    const std::string before = installation.Read("nimbo.mdb");
    const Ended ended = installation.Run({"--acquisisci", "4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors,
                HasSubstr("Terminale 4 non acquisito: 3045 Il database \"" +
                          installation.PathOf("nimbo.mdb") +
                          "\" è aperto in scrittura da un altro programma. Chiuderlo e "
                          "riprovare.\n"));
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
    EXPECT_TRUE(installation.Read("nimbo.mdb") == before);
}

}  // namespace
}  // namespace orlo::end_to_end
