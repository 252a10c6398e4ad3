#include "jetfile/json_reader.h"

#include <gtest/gtest.h>

namespace jetfile
{

namespace
{

TEST(JsonReader, ReadsEveryKindOfValue)
{
    const JsonValue value =
        ReadJson(" {\"a\": [1, -2.5e+3, true, false, null], \"b\": {}, \"\": \"x\"}\r\n");
    const auto* object = value.As<JsonObject>();
    ASSERT_NE(object, nullptr);
    ASSERT_EQ(object->members.size(), 3U);
    const auto* array = object->Find(u"a")->As<JsonArray>();
    ASSERT_NE(array, nullptr);
    ASSERT_EQ(array->size(), 5U);
    EXPECT_EQ(array->at(0).As<JsonNumber>()->text, "1");
    EXPECT_EQ(array->at(1).As<JsonNumber>()->text, "-2.5e+3");
    EXPECT_TRUE(*array->at(2).As<bool>());
    EXPECT_FALSE(*array->at(3).As<bool>());
    EXPECT_NE(array->at(4).As<std::nullptr_t>(), nullptr);
    EXPECT_TRUE(object->Find(u"b")->As<JsonObject>()->members.empty());
    EXPECT_EQ(*object->Find(u"")->As<std::u16string>(), u"x");
    EXPECT_EQ(object->Find(u"c"), nullptr);
}

TEST(JsonReader, ReadsStrings)
{
    struct Case {
        const char* name;
        std::string text;
        std::u16string string;
    };
    const Case cases[] = {
        {"empty", R"("")", u""},
        {"every short escape", R"("\"\\\/\b\f\n\r\t")", u"\"\\/\b\f\n\r\t"},
        {"escaped character, digits in either case", R"("\u00e8\u00E8")", u"\u00e8\u00e8"},
        {"escaped zero", R"("\u0000")", std::u16string(1, u'\0')},
        {"surrogate pair", R"("\ud83d\ude00")", u"\U0001F600"},
        {"UTF-8 of two, three and four bytes", "\"\xC3\xA8\xE2\x82\xAC\xF0\x9F\x98\x80\"",
         u"\u00e8\u20ac\U0001F600"},
        {"DEL needs no escape", "\"\x7F\"", u"\x7F"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const JsonValue value = ReadJson(c.text);
        ASSERT_NE(value.As<std::u16string>(), nullptr);
        EXPECT_EQ(*value.As<std::u16string>(), c.string);
    }
}

TEST(JsonReader, BadTextEndsWithLineAndColumn)
{
    struct Case {
        const char* name;
        std::string text;
        std::size_t line;
        std::size_t column;
    };
    const Case cases[] = {
        {"nothing", "", 7, 1},
        {"blanks only", "  ", 7, 3},
        {"second value", "1 2", 7, 3},
        {"comma before the end of an array", "[1,]", 7, 4},
        {"array without end", "[1", 7, 3},
        {"object without end", "{\"a\":1", 7, 7},
        {"name without quotes", "{a:1}", 7, 2},
        {"name without value", "{\"a\"}", 7, 5},
        {"name twice", "{\"a\":1,\"a\":2}", 7, 8},
        {"zero before digits", "01", 7, 2},
        {"point without digits", "1.", 7, 3},
        {"exponent without digits", "1e+", 7, 4},
        {"minus alone", "-", 7, 2},
        {"plus", "+1", 7, 1},
        {"capitals", "True", 7, 1},
        {"string without end", "\"ab", 7, 4},
        {"string that ends in a backslash", "\"ab\\", 7, 4},
        {"unknown escape", "\"a\\x\"", 7, 3},
        {"three digits only", "\"\\u00e\"", 7, 7},
        {"first half of a pair alone", "\"a\\ud83d\"", 7, 3},
        {"first half twice", "\"\\ud83d\\ud83d\"", 7, 2},
        {"second half alone", "\"\\ude00\"", 7, 2},
        {"control character", "\"a\tb\"", 7, 3},
        {"byte that begins nothing", "\"a\x80\"", 7, 3},
        {"character cut short", "\"a\xC3\"", 7, 3},
        {"longer than needed", "\"\xC0\x80\"", 7, 2},
        {"surrogate in UTF-8", "\"\xED\xA0\x80\"", 7, 2},
        {"beyond the last character", "\"\xF4\x90\x80\x80\"", 7, 2},
        {"columns are characters", "[\"\xC3\xA8\", x]", 7, 7},
        {"lines are counted", "[1,\n  x]", 8, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        try {
            ReadJson(c.text, 7);
            ADD_FAILURE() << "was accepted";
        } catch (const JsonError& error) {
            EXPECT_EQ(error.Line(), c.line) << error.what();
            EXPECT_EQ(error.Column(), c.column) << error.what();
        }
    }
}

TEST(JsonReader, DepthIsLimited)
{
    EXPECT_NO_THROW(ReadJson(std::string(100, '[') + std::string(100, ']')));
    EXPECT_THROW(ReadJson(std::string(101, '[') + std::string(101, ']')), JsonError);
    EXPECT_THROW(ReadJson(std::string(1000000, '[')), JsonError);
}

}  // namespace

}  // namespace jetfile
