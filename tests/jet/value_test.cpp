#include "jet/column_value.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <limits>

namespace jet::test
{

namespace
{

TEST(ColumnValue, EachType)
{
    struct Case {
        ColumnType type;
        const char* bytes;
        std::optional<Value> value;
    };
    const Case kCases[] = {
        {ColumnType::Byte, "FF", std::int32_t{255}},
        {ColumnType::Byte, "", std::nullopt},
        {ColumnType::Integer, "FFFF", std::int32_t{-1}},
        {ColumnType::Integer, "0080", std::int32_t{-32768}},
        {ColumnType::Integer, "01", std::nullopt},
        {ColumnType::Integer, "010000", std::nullopt},
        {ColumnType::Long, "80250000", std::int32_t{9600}},
        {ColumnType::Long, "00000080", std::numeric_limits<std::int32_t>::min()},
        {ColumnType::Currency, "F0D8FFFFFFFFFFFF", Currency{-10000}},
        {ColumnType::Single, "0000003F", 0.5f},
        {ColumnType::Double, "000000000000F8BF", -1.5},
        {ColumnType::Date, "0000000000E0E040", Date{34560}},
        {ColumnType::Date, "000000000000F4BF", Date{-1.25}},
        {ColumnType::Binary, "00FF", Binary{0x00, 0xFF}},
        {ColumnType::Text, "FFFE 41E042", Text(u"AàB")},
        {ColumnType::Text, "", Text()},
        {ColumnType::Text, "41", std::nullopt},
        {ColumnType::Guid, "33221100 5544 7766 8899AABBCCDDEEFF",
         Guid{{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD,
               0xEE, 0xFF}}},
        {ColumnType::Numeric, "80 00000000 00000000 01000000 52300000",
         Numeric{true, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0x30, 0x52}, 3}},
        {ColumnType::Numeric, "80 00000000", std::nullopt},
    };
    for (const Case& c : kCases) {
        ColumnDefinition column;
        column.type = c.type;
        column.scale = 3;
        EXPECT_EQ(DecodeValue(kJet4, column, Hex(c.bytes)), c.value)
            << static_cast<int>(c.type) << ' ' << c.bytes;
    }
}

TEST(ColumnValue, TextOfJet3)
{
    ColumnDefinition column;
    column.type = ColumnType::Text;
    EXPECT_EQ(DecodeValue(kJet3, column, Hex("FFFE 41 80")), Value(Text(u"ÿþA\u20AC")));
}

}  // namespace

}  // namespace jet::test
