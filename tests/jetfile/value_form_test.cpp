#include "jetfile/value_form.h"

#include <gtest/gtest.h>

#include <limits>

namespace jetfile
{

namespace
{

TEST(ValueForm, EveryKindHasItsForm)
{
    jet::Guid guid;
    for (std::uint8_t i = 0; i < 16; ++i) guid.bytes[i] = static_cast<std::uint8_t>(0x11 * i);
    struct Case {
        jet::Value value;
        const char* form;
    };
    const Case cases[] = {
        {jet::Null{}, "null"},
        {true, "true"},
        {false, "false"},
        {std::int32_t{-7}, "-7"},
        {0.1F, "0.1"},
        {16777216.0F, "16777220.0"},
        {2.0, "2.0"},
        {jet::Currency{-5000}, "\"-0.5000\""},
        {jet::Text(u"Perch\u00e9 \"no\""), "\"Perch\xC3\xA9 \\\"no\\\"\""},
        {jet::Binary{}, "\"0x\""},
        {jet::Binary{0x00, 0xFF}, "\"0x00ff\""},
        {guid, "\"{00112233-4455-6677-8899-aabbccddeeff}\""},
    };
    for (const Case& c : cases) EXPECT_EQ(ValueForm(c.value), c.form);
}

struct DateCase {
    double days;
    const char* text;
};

// Day 0 is 1899-12-30; the fraction counts forward on both sides of it.
const DateCase kDates[] = {
    {0.0, "1899-12-30 00:00:00"},       {0.5, "1899-12-30 12:00:00"},
    {1.0, "1899-12-31 00:00:00"},       {-1.25, "1899-12-29 06:00:00"},
    {38046.0, "2004-02-29 00:00:00"},   {2958465.0, "9999-12-31 00:00:00"},
    {-693593.0, "0001-01-01 00:00:00"},
};

TEST(ValueForm, DatesCountFromTheirDayZero)
{
    for (const DateCase& c : kDates) {
        EXPECT_EQ(ValueForm(jet::Date{c.days}), '"' + std::string(c.text) + '"');
        EXPECT_EQ(ReadDate(c.text), jet::Date{c.days}) << c.text;
    }
}

TEST(ValueForm, DatesAreRoundedToTheSecond)
{
    EXPECT_EQ(ValueForm(jet::Date{1.9999999}), "\"1900-01-01 00:00:00\"");
    EXPECT_EQ(ValueForm(jet::Date{1 + 1.6 / 86400}), "\"1899-12-31 00:00:02\"");
}

TEST(ValueForm, DatesBeyondTheCalendarAreNumbers)
{
    EXPECT_EQ(ValueForm(jet::Date{2958466.0}), "\"2958466.0\"");
    EXPECT_EQ(ValueForm(jet::Date{-693594.0}), "\"-693594.0\"");
    EXPECT_EQ(ValueForm(jet::Date{1e300}), "\"1e+300\"");
    EXPECT_EQ(ValueForm(jet::Date{std::numeric_limits<double>::quiet_NaN()}), "\"NaN\"");
}

TEST(ReadDate, RefusesWhatIsNoDate)
{
    for (const char* text : {"", "2004-02-29", "2004-02-30 00:00:00", "2003-02-29 00:00:00",
                             "2004-13-01 00:00:00", "2004-02-29 24:00:00", "2004-02-29 00:60:00",
                             "2004-02-29 00:00:60", "2004-02-29T00:00:00", "0000-01-01 00:00:00",
                             "-004-02-29 00:00:00", "2004-02-29 00:00:0x"}) {
        EXPECT_EQ(ReadDate(text), std::nullopt) << text;
    }
}

}  // namespace

}  // namespace jetfile
