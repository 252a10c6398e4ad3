#include "jet/database.h"
#include "jet/lock_file.h"
#include "tests/registro/register_fixture.h"

namespace orlo::registro::test
{
namespace
{

class Locks : public RegisterFolder
{
protected:
    Locks()
    {
        Do({"crea", "."});
        Do({"aggiungi", ".", "4", "--tipo", "Strale"});
        Write("t.csv", "Terminale;TIPO\n5;Orlo\n");
    }

    void ExpectChangesRefused(const std::string& text) const
    {
        ExpectRefused({"aggiungi", ".", "5", "--tipo", "Orlo"}, text);
        ExpectRefused({"modifica", ".", "4", "--porta", "2"}, text);
        ExpectRefused({"rimuovi", ".", "4"}, text);
        ExpectRefused({"importa", ".", "t.csv"}, text);
    }

    void ExpectReadingWorks() const
    {
        EXPECT_NE(Do({"elenca", "."}).find("Strale"), std::string::npos);
        EXPECT_NE(Do({"esporta", "."}).find("Strale"), std::string::npos);
        EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
    }
};

const std::string kInUse =
    "Il registro è in uso: c'è il file \"./nimbo.ldb\". Chiudere il programma che lo usa; se "
    "nessuno lo sta usando, \"orlodesk-registro sblocca\" lo libera.";

TEST_F(Locks, AHeldLockKeepsChangesOutAndStays)
{
    const auto lock = jet::LockFile::Create(PathOf("nimbo.ldb"));
    ASSERT_NE(lock, nullptr);
    ExpectChangesRefused(kInUse);
    ExpectReadingWorks();
    ExpectRefused({"sblocca", "."}, "Un programma sta usando il registro: chiuderlo.");
    EXPECT_TRUE(Has("nimbo.ldb"));
}

TEST_F(Locks, AStaleLockIsRemoved)
{
    Write("NIMBO.LDB", "");
    ExpectChangesRefused(kInUse);
    EXPECT_EQ(Do({"sblocca", "."}), "Il registro è sbloccato.\n");
    EXPECT_FALSE(Has("NIMBO.LDB"));
    EXPECT_EQ(Do({"sblocca", "."}), "Il registro non era bloccato.\n");
    Do({"rimuovi", ".", "4"});
    EXPECT_FALSE(Has("nimbo.ldb"));
}

TEST_F(Locks, OfARegisterThatIsNotThereAreNotSaidToBeOpen)
{
    const Ended ended = Run({"sblocca", "altrove"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors,
              "orlodesk-registro: Il database \"altrove\" non esiste. Controllare cartella e "
              "nome.\n");
}

TEST_F(Locks, AWriterKeepsChangesOut)
{
    const auto writer = jet::Database::Open(PathOf("nimbo.mdb"), jet::OpenMode::ReadWrite);
    ExpectChangesRefused("Il database \"" + PathOf("nimbo.mdb") +
                         "\" è aperto in scrittura da un altro programma. Chiuderlo e riprovare.");
    ExpectReadingWorks();
}

}  // namespace
}  // namespace orlo::registro::test
