#include "badge/badge_values.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(BadgeValues, NumberIsReadFromTheEndOfTheAnswer)
{
    struct Case {
        const char* name;
        const char* answer;
        std::size_t characters;
        const char* number;
    };
    const Case cases[] = {
        {"three digits", "005", 3, "5"},
        {"text before them", "PAR 012", 3, "12"},
        {"only the last three count", "9123", 3, "123"},
        {"blanks at the end are no part of it", "0012   ", 3, "12"},
        {"blank in front of the digits", "12  7", 3, "7"},
        {"fewer characters than asked for", "8", 3, "8"},
        {"digits end at the first other character", "1a2", 3, "1"},
        {"no digit in front", "a12", 3, "0"},
        {"a sign is no digit", "-12", 3, "0"},
        {"zero", "000", 3, "0"},
        {"no answer", "TIMEOUT", 3, "0"},
        {"bad frame", "RX ERROR", 3, "0"},
        {"empty answer", "", 3, "0"},
        {"only blanks", "    ", 3, "0"},
        {"plant code of its own length", "00123", 5, "123"},
        {"plant code of length 0", "00123", 0, "0"},
        {"plant code longer than a number", "009876543210987654321", 20, "9876543210987654321"},
    };
    for (const Case& c : cases) EXPECT_EQ(NumberAtEnd(c.answer, c.characters), c.number) << c.name;
}

TEST(BadgeValues, ZerosFillUpToTheWidth)
{
    EXPECT_EQ(ZeroFilled("5", 2), "05");
    EXPECT_EQ(ZeroFilled("123", 5), "00123");
    EXPECT_EQ(ZeroFilled("12", 2), "12");
    EXPECT_EQ(ZeroFilled("", 2), "00");
    EXPECT_EQ(ZeroFilled("123", 2), "123");
    EXPECT_EQ(ZeroFilled("", 0), "");
}

}  // namespace orlo
