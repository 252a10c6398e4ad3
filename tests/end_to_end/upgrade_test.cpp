#include "tests/end_to_end/exported_table.h"

#include <filesystem>

namespace orlo::end_to_end
{
namespace
{

/// A register of earlier years, without the sixteen columns that came later.
class Upgrade : public testing::TestWithParam<const char*>
{
};

INSTANTIATE_TEST_SUITE_P(Access, Upgrade, testing::Values("97", "2000"),
                         [](const auto& version) { return std::string(version.param); });

TEST_P(Upgrade, OneStartAddsAllColumnsAndHalfASecondInTheFirstRowOnly)
{
    const Installation installation;
    std::filesystem::copy_file(std::string(ORLO_TEST_DATA "/nimbo-base-") + GetParam() + ".mdb",
                               installation.PathOf("nimbo.mdb"),
                               std::filesystem::copy_options::overwrite_existing);
    const Lines before = Exported(installation, "TERMINALI");
    // Terminal 30 is not registered: the register is read to its end, and nothing is acquired.
    const Ended ended = installation.Run({"--acquisisci", "30"});
    EXPECT_EQ(ended.errors, "Terminale 30 non acquisito: non è nel registro\n");
    EXPECT_FALSE(installation.Has("nimbo.ldb"));

    const Lines after = Exported(installation, "TERMINALI");
    ASSERT_EQ(after.size(), 5U);
    EXPECT_EQ(after[0], before[0] + ",,,,0,,,0.5,,,0,,,,,,");
    for (const std::size_t row : {1U, 2U, 3U, 4U})
        EXPECT_EQ(after[row], before[row] + ",,,,0,,,,,,0,,,,,,");
    EXPECT_EQ(installation.RunRegistro({"verifica", "."}).output, "Il file è integro.\n");

    const std::string upgraded = installation.Read("nimbo.mdb");
    EXPECT_EQ(installation.Run({"--acquisisci", "30"}).status, 1);
    EXPECT_TRUE(installation.Read("nimbo.mdb") == upgraded) << "the second start changes nothing";
}

}  // namespace
}  // namespace orlo::end_to_end
