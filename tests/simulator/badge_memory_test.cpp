#include "simulator/badge_memory.h"

#include <gtest/gtest.h>

namespace orlo::simulator
{
namespace
{

const BadgeLayout kLayout = {1, 5, 6, 7, "00123"};

TEST(BadgeMemory, ReadsEachParameterWithThreeDigits)
{
    const BadgeMemory badge(6, kLayout);
    EXPECT_EQ(badge.Read(6), "001");
    EXPECT_EQ(badge.Read(7), "005");
    EXPECT_EQ(badge.Read(8), "006");
    EXPECT_EQ(badge.Read(9), "007");
    EXPECT_EQ(badge.Read(10), "00123");
    EXPECT_EQ(badge.Read(5), std::nullopt);
    EXPECT_EQ(badge.Read(11), std::nullopt);
}

TEST(BadgeMemory, SharesCodesBetweenGroupsWithAnotherMeaning)
{
    EXPECT_EQ(BadgeMemory(6, kLayout).Read(9), "007");
    EXPECT_EQ(BadgeMemory(9, kLayout).Read(9), "001");
    EXPECT_EQ(BadgeMemory(9, kLayout).Read(13), "00123");
}

TEST(BadgeMemory, FillsAShortPlantCode)
{
    EXPECT_EQ(BadgeMemory(6, {1, 1, 2, 6, "7"}).Read(10), "007");
}

TEST(BadgeMemory, WhatIsWrittenWaitsForTheStore)
{
    BadgeMemory badge(6, kLayout);
    ASSERT_TRUE(badge.Write(6, "12"));
    ASSERT_TRUE(badge.Write(7, "03"));
    ASSERT_TRUE(badge.Write(8, "15"));
    ASSERT_TRUE(badge.Write(9, "04"));
    ASSERT_TRUE(badge.Write(10, "456"));
    EXPECT_EQ(badge.Read(6), "001");
    EXPECT_EQ(badge.Read(10), "00123");
    badge.Store();
    EXPECT_EQ(badge.Stored().plant_start, 12);
    EXPECT_EQ(badge.Stored().plant_length, 3);
    EXPECT_EQ(badge.Stored().badge_start, 15);
    EXPECT_EQ(badge.Stored().badge_length, 4);
    EXPECT_EQ(badge.Stored().plant_code, "456");
}

TEST(BadgeMemory, RefusesAValueOfAnotherWidth)
{
    BadgeMemory badge(6, kLayout);
    for (const char* value : {"", "5", "005", "ab", " 5", "-5"})
        EXPECT_FALSE(badge.Write(6, value)) << value;
    for (const char* value : {"", "123", "000123", "0012x"})
        EXPECT_FALSE(badge.Write(10, value)) << value;
    EXPECT_FALSE(badge.Write(11, "05"));
    EXPECT_FALSE(badge.Write(5, "05"));
    badge.Store();
    EXPECT_EQ(badge.Read(6), "001");
    EXPECT_EQ(badge.Read(10), "00123");
}

}  // namespace
}  // namespace orlo::simulator
