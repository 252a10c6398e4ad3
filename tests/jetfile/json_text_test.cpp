#include "jetfile/json_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace jetfile
{

namespace
{

TEST(JsonText, StringsEscapeOnlyWhatMustBe)
{
    EXPECT_EQ(JsonString("a\"\\/\b\f\n\r\t\x01\x1F\x7F\xC3\xA8"),
              "\"a\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001f\x7F\xC3\xA8\"");
    EXPECT_EQ(JsonString(u"\u20ac"), "\"\xE2\x82\xAC\"");
}

TEST(JsonText, DoublesHaveTheShortestDigits)
{
    struct Case {
        double number;
        const char* text;
    };
    const Case cases[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {1.0, "1.0"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1e15, "1000000000000000.0"},
        {1e16, "1e+16"},
        {1.5e300, "1.5e+300"},
        {5e-324, "5e-324"},
        {std::numeric_limits<double>::infinity(), "Infinity"},
        {-std::numeric_limits<double>::infinity(), "-Infinity"},
        {std::numeric_limits<double>::quiet_NaN(), "NaN"},
    };
    for (const Case& c : cases) EXPECT_EQ(JsonDouble(c.number), c.text);
}

}  // namespace

}  // namespace jetfile
