#include "registry/widgets/badge_drawing.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(BadgePositions, HoldEveryFieldAndTheUsualLength)
{
    struct Case {
        const char* name;
        BadgeLayout layout;
        BadgePositions positions;
    };
    const Case cases[] = {
        {"empty layout", {}, {1, 16}},
        {"fields within a usual badge", {{1, 5}, {}, {6, 6}, 0}, {1, 16}},
        {"given length", {{1, 5}, {}, {6, 6}, 20}, {1, 20}},
        {"field beyond the given length", {{1, 5}, {}, {6, 8}, 12}, {1, 13}},
        {"a start of 0 is a position", {{0, 5}, {}, {5, 6}, 0}, {0, 16}},
        {"a start of 0 without characters is none", {{0, 0}, {}, {5, 6}, 0}, {1, 16}},
        {"no more than can be told apart", {{1, 5}, {}, {6, 30000}, 0}, {1, 64}},
    };
    for (const Case& c : cases) EXPECT_EQ(PositionsOf(c.layout), c.positions) << c.name;
}

TEST(BadgeOverlaps, AreThePositionsClaimedTwice)
{
    EXPECT_TRUE(OverlapsOf({{1, 5}, {}, {6, 6}, 0}).empty());
    EXPECT_EQ(OverlapsOf({{1, 5}, {}, {4, 6}, 0}), (std::vector<BadgeField>{{4, 2}}));
    EXPECT_EQ(OverlapsOf({{1, 4}, {4, 3}, {6, 6}, 0}), (std::vector<BadgeField>{{4, 1}, {6, 1}}));
    EXPECT_TRUE(OverlapsOf({{1, 0}, {1, 0}, {1, 6}, 0}).empty());
}

TEST(BadgeFreePart, LeavesOutWhatOtherFieldsClaim)
{
    const BadgeField plant{1, 5};
    const BadgeField badge{4, 6};
    const BadgeLayout overlapping{plant, {}, badge, 0};
    EXPECT_EQ(FreePart(plant, overlapping), (BadgeField{1, 3}));
    EXPECT_EQ(FreePart(badge, overlapping), (BadgeField{6, 4}));
    const BadgeLayout apart{plant, {}, {6, 6}, 0};
    EXPECT_EQ(FreePart(plant, apart), plant);
    const BadgeLayout covered{{2, 2}, {}, {1, 8}, 0};
    EXPECT_EQ(FreePart({2, 2}, covered).length, 0);
    EXPECT_EQ(FreePart({1, 8}, covered), (BadgeField{4, 5}));
    EXPECT_EQ(FreePart({3, 0}, apart).length, 0);
}

}  // namespace orlo
