#include "registro/given_values.h"

#include "registro/new_terminal.h"

#include <gtest/gtest.h>

namespace orlo::registro
{
namespace
{

struct Case {
    std::int32_t model;
    jet::Value speed;
    std::int32_t priority;
    std::int32_t second_priority;
    float delay;
};

const Case kCases[] = {
    {1, std::int32_t{38400}, 7, 6, 0.5F}, {2, jet::Null{}, 0, 0, 0.0F},
    {3, std::int32_t{19200}, 0, 0, 0.0F}, {4, std::int32_t{9600}, 0, 0, 0.0F},
    {5, std::int32_t{9600}, 0, 0, 0.0F},  {6, std::int32_t{19200}, 0, 0, 0.0F},
    {7, std::int32_t{19200}, 0, 0, 0.0F}, {8, std::int32_t{19200}, 0, 0, 0.0F},
};

TEST(GivenValues, NewTerminalGetsTheDefaultsOfItsModel)
{
    for (const Case& expected : kCases) {
        TerminalValues terminal = NewTerminal();
        ApplyGiven(terminal, {{kTipo, expected.model}});
        EXPECT_TRUE(terminal[kVelocita] == expected.speed) << expected.model;
        EXPECT_TRUE(terminal[kTentativi] == jet::Value(std::int32_t{3})) << expected.model;
        EXPECT_TRUE(terminal[kPriorita] == jet::Value(expected.priority)) << expected.model;
        EXPECT_TRUE(terminal[kPrioritaSecondaria] == jet::Value(expected.second_priority))
            << expected.model;
        EXPECT_TRUE(terminal[kRitardo] == jet::Value(expected.delay)) << expected.model;
    }
}

TEST(GivenValues, WhatIsGivenComesBeforeTheDefaults)
{
    TerminalValues terminal = NewTerminal();
    ApplyGiven(terminal, {{kTipo, std::int32_t{1}}, {kRitardo, 0.0F}});
    EXPECT_TRUE(terminal[kRitardo] == jet::Value(0.0F));
    EXPECT_TRUE(terminal[kPriorita] == jet::Value(std::int32_t{7}));
}

TEST(GivenValues, AnotherModelLeavesValuesThatAreThere)
{
    TerminalValues terminal = NewTerminal();
    ApplyGiven(terminal, {{kTipo, std::int32_t{4}}});
    ApplyGiven(terminal, {{kTipo, std::int32_t{8}}});
    EXPECT_TRUE(terminal[kVelocita] == jet::Value(std::int32_t{9600}));
}

TEST(GivenValues, TheSameModelBringsNoDefaults)
{
    TerminalValues terminal = NewTerminal();
    terminal[kTipo] = std::int32_t{4};
    ApplyGiven(terminal, {{kTipo, std::int32_t{4}}});
    EXPECT_TRUE(jet::IsNull(terminal[kVelocita]));
}

}  // namespace
}  // namespace orlo::registro
