#include "tests/end_to_end/kill_moments.h"
#include "tests/registro/register_fixture.h"

#include <filesystem>
#include <sstream>

// The program killed at any moment: what it was doing is done whole or not at all.

namespace orlo::registro::test
{
namespace
{

namespace fs = std::filesystem;
using end_to_end::ChildProcess;
using end_to_end::KillMoments;

class Kills : public RegisterFolder
{
protected:
    /// Runs the command until it has been killed so many times; before each run `prepare`, behind
    /// it `judge`.
    template <typename Prepare, typename Judge>
    void KillRepeatedly(const std::vector<std::string>& command, int kills, const Prepare& prepare,
                        const Judge& judge) const
    {
        prepare();
        const auto whole_run = end_to_end::TimeOf([&] { Run(command); });
        KillMoments moments(/*seed=*/20261118, whole_run);
        for (int missing = end_to_end::WantedKills(kills); missing > 0 && !HasFailure();) {
            prepare();
            ChildProcess process(ORLO_REGISTRO_PATH, command,
                                 {PathOf("."), {"LC_ALL=C.UTF-8"}, {}});
            missing -= moments.Kill(process) ? 1 : 0;
            judge();
        }
    }

    void Empty() const
    {
        for (const auto& entry : fs::directory_iterator(PathOf("."))) fs::remove_all(entry);
    }

    void ExpectSound() const { EXPECT_EQ(Do({"verifica", "."}), "Il file è integro.\n"); }

    void ExpectUnlockable() const
    {
        Do({"sblocca", "."});
        EXPECT_FALSE(Has("nimbo.ldb"));
    }
};

std::string TwentyTerminals()
{
    std::ostringstream csv("Terminale;TIPO;Descrizione\n", std::ios::ate);
    for (int number = 10; number < 30; ++number) {
        csv << number << ";Strale;Terminale " << number << "\n";
    }
    return csv.str();
}

TEST_F(Kills, AnImportIsDoneWholeOrNotAtAll)
{
    const auto prepare = [&] {
        Empty();
        TakeSample("nimbo-base-2000.mdb");
        Write("t.csv", TwentyTerminals());
    };
    const std::vector<std::string> import{"importa", ".", "t.csv"};
    prepare();
    const std::string before = Exported("TERMINALI");
    Do(import);
    const std::string after = Exported("TERMINALI");
    ASSERT_NE(before, after);
    KillRepeatedly(import, 15, prepare, [&] {
        ExpectSound();
        const std::string found = Exported("TERMINALI");
        EXPECT_TRUE(found == before || found == after) << found;
        ExpectUnlockable();
    });
}

TEST_F(Kills, ANewRegisterIsThereWholeOrNotAtAll)
{
    KillRepeatedly(
        {"crea", "."}, 10, [&] { Empty(); },
        [&] {
            if (!Has("nimbo.mdb")) return;
            ExpectSound();
            EXPECT_TRUE(Has("Configurazione.ini"));
            EXPECT_EQ(Exported("TERMINALI"), "");
            Do({"aggiungi", ".", "4", "--tipo", "Strale"});
        });
}

}  // namespace
}  // namespace orlo::registro::test
