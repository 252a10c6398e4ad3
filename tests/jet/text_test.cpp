#include "jet/text.h"

#include "jet/utf8.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

TEST(CodePage, EveryByteSurvivesReadingAndWriting)
{
    for (unsigned byte = 0; byte < 256; ++byte) {
        const FileBytes one{static_cast<std::uint8_t>(byte)};
        const std::u16string text = DecodeCodePage(one);
        ASSERT_EQ(text.size(), 1u);
        EXPECT_EQ(CodePageByte(text[0]), one[0]) << byte;
    }
}

TEST(CodePage, CharactersByByte)
{
    EXPECT_EQ(DecodeCodePage(Hex("80 82 8A 99 9F A0 E0 FF")),
              u"\u20AC\u201A\u0160\u2122\u0178\u00A0àÿ");
    EXPECT_EQ(DecodeCodePage(Hex("81 8D 8F 90 9D")), u"\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(CodePageByte(u'\u20AC'), 0x80);
    EXPECT_EQ(CodePageByte(u'\u0080'), std::nullopt);
    EXPECT_EQ(CodePageByte(u'\u03A9'), std::nullopt);
}

TEST(RowText, PlainAndCompressed)
{
    struct Case {
        const char* name;
        const char* bytes;
        std::optional<std::u16string> text;
    };
    const Case kCases[] = {
        {"empty", "", u""},
        {"plain", "4100 AC20", u"A\u20AC"},
        {"plain, low byte 00", "0001", u"\u0100"},
        {"half a character", "4100 42", std::nullopt},
        {"only the mark", "FFFE", u""},
        {"compressed", "FFFE 41E042", u"AàB"},
        {"switched to characters", "FFFE 41 00 A903 AC20", u"A\u03A9\u20AC"},
        {"and back", "FFFE 41 00 A903 00 42",
         u"A\u03A9"
         u"B"},
        {"switched first", "FFFE 00 A903", u"\u03A9"},
        {"ends on a switch", "FFFE 41 00", u"A"},
        {"half a character behind a switch", "FFFE 41 00 A9", std::nullopt},
        {"the mark cut in half is no mark", "FF", std::nullopt},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(DecodeRowText(Hex(c.bytes)), c.text) << c.name;
    }
}

TEST(Utf8, LengthsAndSurrogates)
{
    struct Case {
        std::u16string text;
        const char* utf8;
    };
    const Case kCases[] = {
        {u"", ""},
        {u"aà", "a\xC3\xA0"},
        {u"\u20AC", "\xE2\x82\xAC"},
        {u"\U0001F600", "\xF0\x9F\x98\x80"},
        {{u'a', 0xD800}, "a\xEF\xBF\xBD"},
        {{0xDC00, u'a'},
         "\xEF\xBF\xBD"
         "a"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(ToUtf8(c.text), c.utf8);
    }
}

}  // namespace

}  // namespace jet::test
