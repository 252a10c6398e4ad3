#include "status/release_text.h"

#include <gtest/gtest.h>

namespace orlo
{

TEST(ReleaseText, CharactersFourToSixStandBeforeTheFirstThree)
{
    struct Case {
        const char* last_build;
        const char* text;
    };
    const Case cases[] = {
        {"ABCDEFGHIJ", "Release: DEFABCGHIJ"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "Release: DEFABCGHIJKLMNOPQRSTUVW"},
        {"ABCDEFGH", "Release: DEFABCGH"},
        {"ABCDEFG", "Release: DEFABCG"},
        {"ABCDE", "Release: DEABC"},
        {"ABC", "Release: ABC"},
        {"AB", "Release: AB"},
        {"", "Release: "},
        {" 1.20 Mar 05", "Release: 20  1.Mar 05"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReleaseText([&] { return std::string(c.last_build); }), c.text);
}

TEST(ReleaseText, EachPieceIsReadAfresh)
{
    int readings = 0;
    EXPECT_EQ(ReleaseText([&] { return std::string(30, static_cast<char>('A' + readings++)); }),
              "Release: AAABBBCCDDDDDDDDDDDDDDD");
    EXPECT_EQ(readings, 4);
}

}  // namespace orlo
