#include "jetfile/decimal.h"

#include <gtest/gtest.h>

#include <limits>

namespace jetfile
{

namespace
{

using jet::Currency;
using jet::Numeric;

Numeric Small(bool negative, std::uint8_t magnitude, std::uint8_t scale)
{
    Numeric number{negative, {}, scale};
    number.magnitude[15] = magnitude;
    return number;
}

TEST(Decimal, CurrencyHasFourDecimals)
{
    constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(DecimalText(Currency{0}), "0.0000");
    EXPECT_EQ(DecimalText(Currency{-5000}), "-0.5000");
    EXPECT_EQ(DecimalText(Currency{123456}), "12.3456");
    EXPECT_EQ(DecimalText(Currency{kLowest}), "-922337203685477.5808");
    EXPECT_EQ(ReadCurrency("-922337203685477.5808"), Currency{kLowest});
    EXPECT_EQ(ReadCurrency("12"), Currency{120000});
    EXPECT_EQ(ReadCurrency("-0.5"), Currency{-5000});
}

TEST(Decimal, NumericHasAsManyDecimalsAsItsScale)
{
    EXPECT_EQ(DecimalText(Small(false, 0, 0)), "0");
    EXPECT_EQ(DecimalText(Small(false, 0, 2)), "0.00");
    EXPECT_EQ(DecimalText(Small(true, 0, 2)), "0.00");
    EXPECT_EQ(DecimalText(Small(true, 5, 2)), "-0.05");
    EXPECT_EQ(DecimalText(Small(false, 250, 1)), "25.0");
    EXPECT_EQ(ReadNumeric("-0.05"), Small(true, 5, 2));
    EXPECT_EQ(ReadNumeric("250"), Small(false, 250, 0));
}

TEST(Decimal, NumericHas128Bits)
{
    Numeric most;
    most.magnitude.fill(0xFF);
    EXPECT_EQ(DecimalText(most), "340282366920938463463374607431768211455");
    EXPECT_EQ(ReadNumeric("340282366920938463463374607431768211455"), most);
    EXPECT_EQ(ReadNumeric("340282366920938463463374607431768211456"), std::nullopt);
}

TEST(Decimal, OtherTextsAreRefused)
{
    for (const char* text : {"", "-", ".5", "5.", "1.2.3", "+1", "1e3", " 1", "1,5", "--1"}) {
        EXPECT_EQ(ReadCurrency(text), std::nullopt) << text;
        EXPECT_EQ(ReadNumeric(text), std::nullopt) << text;
    }
    EXPECT_EQ(ReadCurrency("1.00000"), std::nullopt);
    EXPECT_EQ(ReadCurrency("922337203685477.5808"), std::nullopt);
}

}  // namespace

}  // namespace jetfile
