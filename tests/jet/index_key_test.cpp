#include "jet/index_key.h"

#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <limits>

namespace jet::test
{

namespace
{

constexpr bool kUp = true;
constexpr bool kDown = false;

ColumnDefinition Column(ColumnType type)
{
    ColumnDefinition column;
    column.type = type;
    column.sort_order = 0x0409;
    return column;
}

Currency Amount(std::int64_t ten_thousandths)
{
    return {ten_thousandths};
}

Numeric Number(bool negative, std::uint8_t low)
{
    Numeric number{negative, {}, 0};
    number.magnitude[15] = low;
    return number;
}

constexpr const char* kMagnitude5 = "0000000000000000 0000000000000005";
constexpr const char* kInverted5 = "FFFFFFFFFFFFFFFF FFFFFFFFFFFFFFFA";

TEST(IndexKey, EachType)
{
    struct Case {
        ColumnType type;
        bool ascending;
        Value value;
        std::string key;
    };
    const Case kCases[] = {
        {ColumnType::Integer, kUp, Null{}, "00"},
        {ColumnType::Integer, kDown, Null{}, "FF"},
        {ColumnType::Text, kUp, Null{}, "00"},
        {ColumnType::YesNo, kUp, true, "7F 00"},
        {ColumnType::YesNo, kUp, false, "7F FF"},
        {ColumnType::YesNo, kDown, true, "80 FF"},
        {ColumnType::YesNo, kDown, false, "80 00"},
        {ColumnType::Byte, kUp, 255, "7F FF"},
        {ColumnType::Byte, kDown, 1, "80 FE"},
        {ColumnType::Integer, kUp, 5, "7F 8005"},
        {ColumnType::Integer, kUp, -1, "7F 7FFF"},
        {ColumnType::Integer, kUp, -32768, "7F 0000"},
        {ColumnType::Integer, kDown, 5, "80 7FFA"},
        {ColumnType::Long, kUp, 1, "7F 80000001"},
        {ColumnType::Long, kDown, 1, "80 7FFFFFFE"},
        {ColumnType::Currency, kUp, Amount(10000), "7F 8000000000002710"},
        {ColumnType::Currency, kUp, Amount(-1), "7F 7FFFFFFFFFFFFFFF"},
        {ColumnType::Single, kUp, 0.5f, "7F BF000000"},
        {ColumnType::Single, kUp, -0.5f, "7F 40FFFFFF"},
        {ColumnType::Single, kDown, 0.5f, "80 40FFFFFF"},
        {ColumnType::Double, kUp, 0.0, "7F 8000000000000000"},
        {ColumnType::Double, kUp, -1.5, "7F 4007FFFFFFFFFFFF"},
        {ColumnType::Date, kUp, Date{34560}, "7F C0E0E00000000000"},
        {ColumnType::Date, kDown, Date{34560}, "80 3F1F1FFFFFFFFFFF"},
        {ColumnType::Guid, kUp,
         Guid{{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD,
               0xEE, 0xFF}},
         "7F 0011223344556677 09 8899AABBCCDDEEFF 08"},
        {ColumnType::Binary, kUp, Binary{}, "7F"},
        {ColumnType::Binary, kUp, Binary{0xF6, 0x02, 0x03}, "7F F602030000000000 03"},
        {ColumnType::Binary, kDown, Binary{0xF6, 0x02, 0x03}, "80 09FDFCFFFFFFFFFF FC"},
        {ColumnType::Binary, kUp, Binary(8, 0x11), "7F 1111111111111111 08"},
        {ColumnType::Binary, kDown, Binary(9, 0x11), "80 EEEEEEEEEEEEEEEE 09 EEFFFFFFFFFFFFFF FE"},
        {ColumnType::Numeric, kUp, Number(false, 5), std::string("7F FF") + kMagnitude5},
        {ColumnType::Numeric, kUp, Number(true, 5), std::string("7F 00") + kInverted5},
        {ColumnType::Numeric, kDown, Number(false, 5), std::string("80 FF") + kInverted5},
        {ColumnType::Numeric, kDown, Number(true, 5), std::string("80 00") + kMagnitude5},
    };
    for (const Case& c : kCases) {
        KeyBytes key;
        EXPECT_EQ(AppendKey(kJet4, Column(c.type), c.ascending, c.value, key), KeyResult::Built);
        EXPECT_EQ(key, Hex(c.key)) << static_cast<int>(c.type) << ' ' << c.key;
    }
}

TEST(IndexKey, TextOfJet4)
{
    struct Case {
        const char16_t* text;
        bool ascending;
        const char* key;
    };
    const Case kCases[] = {
        {u"", kUp, "01 00"},
        {u"Rossi", kUp, "69646B6B59 01 00"},
        {u"rOSSI  ", kUp, "69646B6B59 01 00"},
        {u"Rossi", kDown, "969B9494A6 FE FF 00"},
        {u"Perché", kUp, "6651694D5751 01 02020202020E 00"},
        {u"D'Angelo", kUp, "4F4A6255515E64 01 010101 800B0680 00"},
        // The accents already cover three places when the hyphen comes.
        {u"così-no", kUp, "4D646B59 6264 01 0202020F 010101 80170682 00"},
        // A combining mark adds to the accent of its letter.
        {u"e\u0301", kUp, "51 01 0E 00"},
        {u"a\uFEFFb", kUp, "4A4C 01 00"},
    };
    for (const Case& c : kCases) {
        KeyBytes key;
        EXPECT_TRUE(AppendUnicodeTextKey(c.text, c.ascending, key));
        EXPECT_EQ(key, Hex(c.key)) << c.key;
    }
}

TEST(IndexKey, TextOfJet3)
{
    struct Case {
        const char16_t* text;
        bool ascending;
        const char* key;
    };
    const Case kCases[] = {
        {u"", kUp, "00"},
        {u"Rossi", kUp, "757276766A 00"},
        {u"Rossi ", kDown, "8A8D898995 FF"},
        {u"Perché", kUp, "736675626966 0224 00"},
        {u"Città 2", kUp, "626A7777601158 0223 00"},
        {u"co-op", kUp, "62721E7273 00"},
    };
    for (const Case& c : kCases) {
        KeyBytes key;
        EXPECT_TRUE(AppendCodePageTextKey(c.text, c.ascending, key));
        EXPECT_EQ(key, Hex(c.key)) << c.key;
    }
}

TEST(IndexKey, OnlyTheFirst255CharactersCount)
{
    const std::u16string longest(255, u'r');
    KeyBytes cut;
    KeyBytes whole;
    EXPECT_TRUE(AppendUnicodeTextKey(longest, kUp, whole));
    EXPECT_TRUE(AppendUnicodeTextKey(longest + u"ossi", kUp, cut));
    EXPECT_EQ(whole.size(), 257u);
    EXPECT_EQ(cut, whole);
}

TEST(IndexKey, WhatHasNoKey)
{
    ColumnDefinition other_order = Column(ColumnType::Text);
    other_order.sort_order = 0x0407;
    ColumnDefinition other_version = Column(ColumnType::Text);
    other_version.sort_version = 1;
    struct Case {
        const char* name;
        const Format& format;
        ColumnDefinition column;
        Value value;
        KeyResult result;
    };
    const Case kCases[] = {
        {"text for a number", kJet4, Column(ColumnType::Long), Text(u"5"), KeyResult::WrongKind},
        {"number for a text", kJet4, Column(ColumnType::Text), 5, KeyResult::WrongKind},
        {"too great", kJet4, Column(ColumnType::Integer), 32768, KeyResult::WrongKind},
        {"too small", kJet4, Column(ColumnType::Integer), -32769, KeyResult::WrongKind},
        {"no byte", kJet4, Column(ColumnType::Byte), -1, KeyResult::WrongKind},
        {"Yes/No is never null", kJet4, Column(ColumnType::YesNo), Null{}, KeyResult::WrongKind},
        {"no code", kJet4, Column(ColumnType::Text), Text(u"\u4E2D"), KeyResult::NoCode},
        {"not in the code page", kJet3, Column(ColumnType::Text), Text(u"\u03A9"),
         KeyResult::NoCode},
        {"other sort order", kJet4, other_order, Text(u"a"), KeyResult::UnknownOrder},
        {"other version", kJet4, other_version, Text(u"a"), KeyResult::UnknownOrder},
        {"long value", kJet4, Column(ColumnType::Ole), Binary{1}, KeyResult::NotIndexable},
    };
    for (const Case& c : kCases) {
        KeyBytes key;
        EXPECT_EQ(AppendKey(c.format, c.column, kUp, c.value, key), c.result) << c.name;
    }
}

}  // namespace

}  // namespace jet::test
