#include "registry/numeric_value.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orlo
{

TEST(NumericValue, IsTheNumberTheTextBeginsWith)
{
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"", 0},      {"   ", 0},   {"abc", 0},     {"12abc", 12},
        {"  7", 7},   {"7 8", 7},   {"12,5", 12.5}, {",5", 0.5},
        {"0,5", 0.5}, {"3,", 3},    {"-4", -4},     {"+4", 4},
        {"- 4", 0},   {"1.200", 1}, {"00042", 42},  {"99999999999", 99999999999.0},
        {",", 0},     {"-", 0},     {"--3", 0},
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(NumericValue(QString::fromUtf8(c.text)), c.value) << '"' << c.text << '"';
}

TEST(WholeNumber, FitsOrIsNothing)
{
    const auto small = [](const char* text) {
        return WholeNumber<std::int16_t>(QString::fromUtf8(text));
    };
    EXPECT_EQ(small("32767"), 32767);
    EXPECT_EQ(small("32768"), std::nullopt);
    EXPECT_EQ(small("-32768"), -32768);
    EXPECT_EQ(small("-32769"), std::nullopt);
    EXPECT_EQ(small("testo"), 0);
    EXPECT_EQ(WholeNumber<std::int32_t>(QStringLiteral("2147483647")), 2147483647);
    EXPECT_EQ(WholeNumber<std::int32_t>(QStringLiteral("2147483648")), std::nullopt);
}

TEST(WholeNumber, RoundsHalvesToTheEvenOne)
{
    EXPECT_EQ(WholeNumber<int>(QStringLiteral("2,5")), 2);
    EXPECT_EQ(WholeNumber<int>(QStringLiteral("3,5")), 4);
    EXPECT_EQ(WholeNumber<int>(QStringLiteral("2,6")), 3);
}

TEST(WholeNumberOrZero, TakesANumberThatDoesNotFitForNone)
{
    EXPECT_EQ(WholeNumberOrZero<std::int16_t>(QStringLiteral("38400")), 0);
    EXPECT_EQ(WholeNumberOrZero<std::int32_t>(QStringLiteral("38400")), 38400);
}

}  // namespace orlo
