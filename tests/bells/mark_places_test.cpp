#include "bells/mark_places.h"

#include <gtest/gtest.h>

#include <utility>

namespace orlo
{
namespace
{

TEST(MarkLength, IsInProportionToTheDuration)
{
    EXPECT_DOUBLE_EQ(MarkLength(10, 10, 60), 60);
    EXPECT_DOUBLE_EQ(MarkLength(5, 10, 60), 30);
    EXPECT_DOUBLE_EQ(MarkLength(99, 99, 60), 60);
    EXPECT_DOUBLE_EQ(MarkLength(0, 10, 60), 2) << "a ring that does not sound is there";
}

TEST(MovedApart, LeavesAGapAndMovesAsLittleAsThatTakes)
{
    using Places = std::vector<double>;
    const std::pair<Places, Places> cases[] = {
        {{}, {}},
        {{10, 20}, {10, 20}},
        {{10, 16}, {10, 16}},
        {{10, 12}, {8, 14}},
        {{10, 10, 10}, {4, 10, 16}},
        {{10, 12, 17}, {7, 13, 19}},
        {{10, 12, 30}, {8, 14, 30}},
    };
    for (const auto& [places, moved] : cases) EXPECT_EQ(MovedApart(places, 6), moved);
}

}  // namespace
}  // namespace orlo
