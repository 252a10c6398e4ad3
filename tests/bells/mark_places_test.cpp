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
    EXPECT_DOUBLE_EQ(MarkLength(0, 10, 60), 6) << "a ring that does not sound is there";
    EXPECT_DOUBLE_EQ(MarkLength(1, 99, 60), 6);
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
    for (const auto& [places, moved] : cases) EXPECT_EQ(MovedApart(places, 6, {0, 100}), moved);
}

TEST(MovedApart, KeepsThePlacesInTheStretch)
{
    using Places = std::vector<double>;
    const std::pair<Places, Places> cases[] = {
        {{0, 50, 100}, {2, 50, 98}},
        {{0, 0, 0}, {2, 8, 14}},
        {{1, 9, 96, 99}, {2, 9, 92, 98}},
        {{100, 100, 100}, {86, 92, 98}},
    };
    for (const auto& [places, moved] : cases) EXPECT_EQ(MovedApart(places, 6, {2, 98}), moved);
    EXPECT_EQ(MovedApart({5, 6, 7}, 6, {2, 10}), (Places{2, 8, 14})) << "no room for all";
}

}  // namespace
}  // namespace orlo
