#include "tests/end_to_end/exported_table.h"

namespace orlo::end_to_end
{
namespace
{

const std::vector<TerminalRow> kChanges = {
    {.terminal = 5, .type = 8, .port = 2, .speed = 38400, .retries = 1},
    {.terminal = 6, .type = 6, .port = 3, .speed = 1200, .retries = 5, .active = false},
    {.terminal = 7, .type = 7, .port = 1, .speed = 14400, .retries = 3},
};

TEST(SampleRegister, ChangesTheWantedColumnsOfAccess2000Only)
{
    const Installation installation;
    const Lines before = Exported(installation, "TERMINALI");
    installation.Register(kChanges, Jet::k4, /*layout=*/0);
    const Lines after = Exported(installation, "TERMINALI");
    ASSERT_EQ(after.size(), 8U);
    for (const std::size_t untouched : {0U, 1U, 2U, 3U, 7U})
        EXPECT_EQ(after[untouched], before[untouched]);
    EXPECT_EQ(after[4],
              "5,3,\"Università €uro\",1,3,2,5,38400,0.5,\"Badge azienda\",12,0,1,2,3,4,7,6,1,15,0,"
              "8,\"+39 0464/123456\",5");
    EXPECT_EQ(after[5], "6,2,\"Officina n° 6\",0,2,3,5,1200,,,,0,,,,,,,5,,0,6,,");
    EXPECT_EQ(after[6], "7,3,,1,3,1,9,14400,0.5,,,0,,,,,,,3,,0,7,,");
    EXPECT_EQ(Exported(installation, "Output"), Lines{"0,\"AZ0042\""});
}

TEST(SampleRegister, ChangesTheWantedColumnsOfAccess97Only)
{
    const Installation installation;
    installation.Register({}, Jet::k3, /*layout=*/1);
    const Lines before = Exported(installation, "TERMINALI");
    installation.Register(kChanges, Jet::k3, /*layout=*/1);
    const Lines after = Exported(installation, "TERMINALI");
    ASSERT_EQ(after.size(), 8U);
    for (const std::size_t untouched : {0U, 1U, 2U, 3U, 7U})
        EXPECT_EQ(after[untouched], before[untouched]);
    EXPECT_EQ(after[4],
              "5,3,\"Università €uro\",1,3,2,5,38400,0.5,\"Badge azienda\",12,0,1,2,3,4,7,6,1,15,0,"
              "8,\"0464 910685\",5");
    EXPECT_EQ(after[5], "6,1,\"Officina n° 6\",0,1,3,6,1200,,,,0,,,,,,,5,,0,6,,");
    EXPECT_EQ(after[6], "7,2,,1,2,1,7,14400,0.5,,,0,,,,,,,3,,0,7,,");
    EXPECT_EQ(Exported(installation, "Output"), Lines{"1,\"AZ0042\""});
}

}  // namespace
}  // namespace orlo::end_to_end
