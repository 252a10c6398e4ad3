#include "tests/end_to_end/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orlo::end_to_end
{
namespace
{

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Component, MissingLibraryIsTheErrorOfAnObjectThatCannotBeCreated)
{
    const Installation installation;
    installation.Register({{.terminal = 4}, {.terminal = 2, .type = 1}});
    const std::string library = installation.PathOf("manca.so");
    const Ended ended = installation.Run({"--acquisisci", "2,4", "--componente", library});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, AllOf(StartsWith(" 429 "), HasSubstr(library),
                                    HasSubstr("\nTerminale 2 non acquisito: 429 "),
                                    HasSubstr("\nTerminale 4 non acquisito: 429 ")));
    EXPECT_FALSE(installation.Has("nimbo.ldb"));
    EXPECT_FALSE(installation.Has("TIMBRAT.TXT"));
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
