#include "bells/week_state.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(WeekState, AfterAReadIsByTheRingsThatCame)
{
    EXPECT_EQ(AfterRead(0), WeekState::Unread);
    EXPECT_EQ(AfterRead(24), WeekState::Partial);
    EXPECT_EQ(AfterRead(167), WeekState::Partial);
    EXPECT_EQ(AfterRead(168), WeekState::Known);
}

TEST(WeekState, AfterAnEditIsNoBetterThanBefore)
{
    EXPECT_EQ(AfterEdit(WeekState::Unread), WeekState::Edited);
    EXPECT_EQ(AfterEdit(WeekState::Edited), WeekState::Edited);
    EXPECT_EQ(AfterEdit(WeekState::Partial), WeekState::PartialChanged);
    EXPECT_EQ(AfterEdit(WeekState::PartialChanged), WeekState::PartialChanged);
    EXPECT_EQ(AfterEdit(WeekState::Known), WeekState::Changed);
    EXPECT_EQ(AfterEdit(WeekState::Changed), WeekState::Changed);
}

TEST(WeekState, OnlyAKnownWeekNeedsNoWarning)
{
    for (const WeekState state : {WeekState::Unread, WeekState::Edited, WeekState::Partial,
                                  WeekState::PartialChanged, WeekState::Changed})
        EXPECT_FALSE(WeekWarning(state).isEmpty());
    EXPECT_TRUE(WeekWarning(WeekState::Known).isEmpty());
}

TEST(WeekState, WhatWasNotReadWholeIsReadBeforeItIsSent)
{
    EXPECT_FALSE(IsToBeSent(WeekState::Unread));
    EXPECT_FALSE(IsToBeSent(WeekState::Partial));
    EXPECT_FALSE(IsToBeSent(WeekState::PartialChanged));
    EXPECT_TRUE(IsToBeSent(WeekState::Edited));
    EXPECT_TRUE(IsToBeSent(WeekState::Known));
    EXPECT_TRUE(IsToBeSent(WeekState::Changed));
}

}  // namespace
}  // namespace orlo
