#include "tests/end_to_end/kill_moments.h"
#include "tests/registro/register_fixture.h"

#include <filesystem>

// The program killed at any moment: what it was doing is done whole or not at all.

namespace orlo::registro::test
{
namespace
{

namespace fs = std::filesystem;
using end_to_end::ChildProcess;
using end_to_end::KillMoments;

constexpr unsigned kSeed = 20261118;

class Kills : public RegisterFolder
{
protected:
    ChildProcess Start(const std::vector<std::string>& arguments) const
    {
        return {ORLO_REGISTRO_PATH, arguments, {PathOf("."), {"LC_ALL=C.UTF-8"}, {}}};
    }

    /// Runs the command until it has been killed so many times; before each run `prepare`, behind
    /// it `judge`.
    template <typename Prepare, typename Judge>
    void KillRepeatedly(const std::vector<std::string>& command, int usual, const Prepare& prepare,
                        const Judge& judge) const
    {
        prepare();
        const auto whole_run = end_to_end::TimeOf([&] { Start(command).Wait(); });
        KillMoments moments(kSeed, whole_run);
        const int wanted = end_to_end::WantedKills(usual);
        int kills = 0;
        for (int run = 0; kills < wanted; ++run) {
            SCOPED_TRACE("run " + std::to_string(run));
            ASSERT_LT(run, 20 * wanted) << "nearly every run ends before it is killed";
            prepare();
            ChildProcess process = Start(command);
            kills += moments.Kill(process) ? 1 : 0;
            judge();
        }
    }
};

TEST_F(Kills, AnImportIsDoneWholeOrNotAtAll)
{
    TakeSample("nimbo-base-2000.mdb");
    const std::string sample = Read("nimbo.mdb");
    const std::string before = Exported("TERMINALI");
    std::string csv = "Terminale;TIPO;Descrizione\n";
    for (int number = 10; number < 30; ++number) {
        csv += std::to_string(number) + ";Strale;Terminale " + std::to_string(number) + "\n";
    }
    Write("t.csv", csv);
    Do({"importa", ".", "t.csv"});
    const std::string after = Exported("TERMINALI");
    ASSERT_NE(before, after);

    KillRepeatedly(
        {"importa", ".", "t.csv"}, 15,
        [&] {
            fs::remove(PathOf("nimbo.mdb-journal"));
            fs::remove(PathOf("nimbo.ldb"));
            Write("nimbo.mdb", sample);
        },
        [&] {
            EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
            const std::string found = Exported("TERMINALI");
            EXPECT_TRUE(found == before || found == after) << found;
            // The lock that a kill leaves behind is nobody's.
            Do({"sblocca", "."});
            EXPECT_FALSE(Has("nimbo.ldb"));
        });
}

TEST_F(Kills, ANewRegisterIsThereWholeOrNotAtAll)
{
    KillRepeatedly(
        {"crea", "."}, 10,
        [&] {
            for (const auto& entry : fs::directory_iterator(PathOf("."))) fs::remove_all(entry);
        },
        [&] {
            if (!Has("nimbo.mdb")) return;
            EXPECT_TRUE(Has("Configurazione.ini"));
            EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n");
            EXPECT_EQ(Exported("TERMINALI"), "");
            Do({"aggiungi", ".", "4", "--tipo", "Strale"});
        });
}

}  // namespace
}  // namespace orlo::registro::test
