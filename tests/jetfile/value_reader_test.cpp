#include "jetfile/value_reader.h"

#include "jet/error.h"
#include "jetfile/json_reader.h"

#include <gtest/gtest.h>

namespace jetfile
{

namespace
{

using jet::ColumnType;

jet::Value Read(ColumnType type, const std::string& json)
{
    return ReadValue(ReadJson(json), {u"Nome", type, 0});
}

TEST(ValueReader, ReadsTheFormsOfEveryType)
{
    jet::Guid guid;
    for (std::uint8_t i = 0; i < 16; ++i) guid.bytes[i] = static_cast<std::uint8_t>(0x11 * i);
    jet::Numeric numeric{true, {}, 1};
    numeric.magnitude[15] = 75;
    struct Case {
        ColumnType type;
        const char* json;
        jet::Value value;
    };
    const Case cases[] = {
        {ColumnType::Text, "null", jet::Null{}},
        {ColumnType::YesNo, "true", true},
        {ColumnType::Byte, "255", std::int32_t{255}},
        {ColumnType::Long, "-2147483648", std::int32_t{-2147483647 - 1}},
        {ColumnType::Single, "0.5", 0.5},
        {ColumnType::Double, "1e+300", 1e300},
        {ColumnType::Double, "3", 3.0},
        {ColumnType::Currency, "\"-0.5000\"", jet::Currency{-5000}},
        {ColumnType::Currency, "12.34", jet::Currency{123400}},
        {ColumnType::Numeric, "\"-7.5\"", numeric},
        {ColumnType::Date, "\"1899-12-31 12:00:00\"", jet::Date{1.5}},
        {ColumnType::Guid, "\"{00112233-4455-6677-8899-AABBccddeeff}\"", guid},
        {ColumnType::Binary, "\"0x00fF\"", jet::Binary{0x00, 0xFF}},
        {ColumnType::Ole, "\"0x\"", jet::Binary{}},
        {ColumnType::Text, "\"0x00\"", jet::Text(u"0x00")},
        {ColumnType::Memo, "\"a\"", jet::Text(u"a")},
    };
    for (const Case& c : cases) EXPECT_EQ(Read(c.type, c.json), c.value) << c.json;
}

TEST(ValueReader, OtherFormsAreRefusedWithTheColumnsName)
{
    struct Case {
        ColumnType type;
        const char* json;
        int number;
    };
    const Case cases[] = {
        {ColumnType::YesNo, "1", jet::kWrongType},
        {ColumnType::Long, "1.0", jet::kWrongType},
        {ColumnType::Long, "1e3", jet::kWrongType},
        {ColumnType::Long, "\"1\"", jet::kWrongType},
        {ColumnType::Long, "2147483648", jet::kFieldOverflow},
        {ColumnType::Double, "\"1\"", jet::kWrongType},
        {ColumnType::Double, "1e999", jet::kFieldOverflow},
        {ColumnType::Currency, "\"1.23456\"", jet::kWrongType},
        {ColumnType::Currency, "1e3", jet::kWrongType},
        {ColumnType::Date, "1", jet::kWrongType},
        {ColumnType::Guid, "\"00112233-4455-6677-8899-aabbccddeeff\"", jet::kWrongType},
        {ColumnType::Guid, "\"{00112233-4455-6677-8899-aabbccddeefg}\"", jet::kWrongType},
        {ColumnType::Guid, "\"{0011223344556677-8899-aabbccddeeff00}\"", jet::kWrongType},
        {ColumnType::Binary, "\"00ff\"", jet::kWrongType},
        {ColumnType::Binary, "\"0x0\"", jet::kWrongType},
        {ColumnType::Binary, "\"0x0g\"", jet::kWrongType},
        {ColumnType::Text, "1", jet::kWrongType},
        {ColumnType::Text, "[]", jet::kWrongType},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.json);
        try {
            Read(c.type, c.json);
            ADD_FAILURE() << "was accepted";
        } catch (const jet::Error& error) {
            EXPECT_EQ(error.Number(), c.number);
            EXPECT_NE(std::string(error.what()).find("\"Nome\""), std::string::npos);
        }
    }
}

}  // namespace

}  // namespace jetfile
