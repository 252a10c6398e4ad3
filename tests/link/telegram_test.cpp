#include "link/telegram.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

std::string Bytes(std::initializer_list<int> codes)
{
    std::string bytes;
    for (const int code : codes) bytes += static_cast<char>(static_cast<unsigned char>(code));
    return bytes;
}

TEST(RequestFrame, ClockRequestToTerminal1)
{
    EXPECT_EQ(BuildRequestFrame(1, "03"), Bytes({2, 129, 48, 51, 230, 13}));
}

TEST(RequestFrame, LastTerminalHasAddress160)
{
    // 2 + 160 = 162 -> 34; + 51 = 85; + 50 = 135 -> 7; 7 + 128 = 135
    EXPECT_EQ(BuildRequestFrame(32, "32"), Bytes({2, 160, 51, 50, 135, 13}));
}

TEST(RequestFrame, EmptyCommandHasNoBody)
{
    EXPECT_EQ(BuildRequestFrame(1, ""), Bytes({2, 129, 131, 13}));
}

TEST(RequestFrame, CharactersAbove127AreSentAsThatByte)
{
    // 2 + 129 = 131 -> 3; + 232 = 235 -> 107; 107 + 128 = 235
    EXPECT_EQ(BuildRequestFrame(1, "\xE8"), Bytes({2, 129, 232, 235, 13}));
}

// SOH, address 129 and "OK": 1 + 129 = 130 -> 2; + 79 = 81; + 75 = 156 -> 28; 28 + 128 = 156 = 9C.
TEST(AnswerFrame, ParsesByTheTable)
{
    struct Case {
        const char* name;
        std::string received;
        std::string result;
    };
    const Case cases[] = {
        {"data",
         "\x01\x81"
         "OK\x9C\r",
         "OK"},
        {"noise around the frame is ignored",
         "xx\x01\x81"
         "OK\x9C\ryy",
         "OK"},
        {"wrong checksum",
         "\x01\x81"
         "OK\x9D\r",
         "RX ERROR"},
        {"checksum without its high bit",
         "\x01\x81"
         "OK\x1C\r",
         "RX ERROR"},
        {"no data", "\x01\x81\x82\r", ""},
        {"no data and a wrong checksum", "\x01\x81\x83\r", "RX ERROR"},
        {"shorter than four characters", "\x01\x81\r", "RX ERROR"},
        {"CR before any SOH",
         "\r\x01\x81"
         "OK\x9C\r",
         "RX ERROR"},
        {"no SOH",
         "\x81"
         "OK\x9C\r",
         "RX ERROR"},
        {"no CR",
         "\x01\x81"
         "OK\x9C",
         "RX ERROR"},
        {"nothing", "", "RX ERROR"},
        {"SOH directly before CR", "abc\x01\r", "RX ERROR"},
        {"another terminal's address is taken",
         "\x01\x85"
         "OK\xA0\r",
         "OK"},
    };
    for (const Case& c : cases) EXPECT_EQ(ParseAnswerFrame(1, c.received), c.result) << c.name;
}

TEST(AnswerFrame, CompleteMeansThatACrHasArrived)
{
    EXPECT_FALSE(
        HoldsCompleteAnswer("\x01\x81"
                            "OK\x9C"));
    EXPECT_TRUE(HoldsCompleteAnswer("\r"));
}

}  // namespace
}  // namespace orlo
