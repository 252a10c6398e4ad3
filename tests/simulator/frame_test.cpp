#include "simulator/frame.h"

#include <gtest/gtest.h>

#include <vector>

namespace orlo::simulator
{
namespace
{

std::vector<Telegram> Read(RequestReader& reader, std::string_view bytes)
{
    std::vector<Telegram> telegrams;
    for (const char byte : bytes)
        if (const auto telegram = reader.Take(byte)) telegrams.push_back(*telegram);
    return telegrams;
}

std::vector<Telegram> Read(std::string_view bytes)
{
    RequestReader reader;
    return Read(reader, bytes);
}

TEST(Checksum, IsKeptToSevenBitsWithTheEighthSet)
{
    EXPECT_EQ(Checksum(std::string_view("\x02\x81"
                                        "03",
                                        4)),
              230);
    EXPECT_EQ(Checksum(""), 128);
    EXPECT_EQ(Checksum("\x7F\x01"), 128);
    EXPECT_EQ(Checksum("\xFF"), 255);
}

TEST(AnswerFrame, HasStartAddressDataChecksumAndCr)
{
    EXPECT_EQ(AnswerFrame(1, "OK"),
              "\x01\x81"
              "OK\x9C\r");
    EXPECT_EQ(AnswerFrame(32, ""), "\x01\xA0\xA1\r");
}

TEST(RequestReader, ReadsARequestToTerminalOne)
{
    const std::string request = {2, static_cast<char>(129), 48, 51, static_cast<char>(230), 13};
    const auto telegrams = Read(request);
    ASSERT_EQ(telegrams.size(), 1U);
    EXPECT_TRUE(telegrams[0].sound);
    EXPECT_EQ(telegrams[0].terminal, 1);
    EXPECT_EQ(telegrams[0].command, "03");
}

struct SoundCase {
    const char* name;
    std::string bytes;
    int terminal;
    std::string command;
};

TEST(RequestReader, FindsTheRequestInWhatTheLineBrings)
{
    const SoundCase cases[] = {
        {"a command without a body", "\x02\x81\x83\r", 1, ""},
        {"to all terminals",
         "\x02\x80"
         "03\xE5\r",
         0, "03"},
        {"to terminal 32",
         "\x02\xA0"
         "03\x85\r",
         32, "03"},
        {"noise and a stray CR before",
         "xy\r\x7F\x02\x81"
         "03\xE6\r",
         1, "03"},
        {"half a request before",
         "\x02\x81"
         "33\x02\x81"
         "03\xE6\r",
         1, "03"},
        {"too many bytes before",
         "\x02" + std::string(600, 'x') +
             "\r\x02\x81"
             "03\xE6\r",
         1, "03"},
    };
    for (const SoundCase& c : cases) {
        SCOPED_TRACE(c.name);
        const auto telegrams = Read(c.bytes);
        ASSERT_EQ(telegrams.size(), 1U);
        EXPECT_TRUE(telegrams[0].sound);
        EXPECT_EQ(telegrams[0].terminal, c.terminal);
        EXPECT_EQ(telegrams[0].command, c.command);
    }
}

TEST(RequestReader, TellsADamagedRequest)
{
    const std::pair<const char*, std::string> cases[] = {
        {"wrong checksum",
         "\x02\x81"
         "03\xE7\r"},
        {"a byte missing",
         "\x02\x81"
         "3\xE6\r"},
        {"address without its eighth bit",
         "\x02\x01"
         "03\xE6\r"},
        {"nothing between", "\x02\r"},
        {"no checksum", "\x02\x81\r"},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        const auto telegrams = Read(bytes);
        ASSERT_EQ(telegrams.size(), 1U);
        EXPECT_FALSE(telegrams[0].sound);
    }
}

TEST(RequestReader, TakesARequestThatComesInPieces)
{
    RequestReader reader;
    EXPECT_TRUE(Read(reader, "\x02\x81").empty());
    EXPECT_TRUE(Read(reader, "0").empty());
    EXPECT_EQ(Read(reader, "3\xE6\r").size(), 1U);
}

TEST(RequestReader, ForgetsHalfARequestWhenTold)
{
    RequestReader reader;
    Read(reader,
         "\x02\x81"
         "0");
    reader.Forget();
    EXPECT_TRUE(Read(reader, "3\xE6\r").empty());
}

}  // namespace
}  // namespace orlo::simulator
