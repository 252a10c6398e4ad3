#include "simulator/object_frame.h"

#include <gtest/gtest.h>

#include <string_view>

namespace orlo::simulator
{
namespace
{

using namespace std::string_literals;

const std::string kRequest =
    "\xE5\x07\x01\x00\x01\x00\x08\x00\x09"
    "\x06\x00numero"
    "\xC6\x41"s;
const std::string kAnswer =
    "\xE6\x07\x01\x00\x01\x00\x08\x00\x08"
    "\x02\x00OK\x02\x00\x31\x32"
    "\x20\x09"s;

std::vector<ObjectMessage> Read(ObjectFrameReader& reader, std::string_view bytes)
{
    std::vector<ObjectMessage> messages;
    for (const char byte : bytes)
        if (std::optional<ObjectMessage> message = reader.Take(byte))
            messages.push_back(std::move(*message));
    return messages;
}

std::size_t Requests(std::string_view bytes)
{
    ObjectFrameReader reader(FrameKind::Request);
    return Read(reader, bytes).size();
}

TEST(Crc16, HasTheValueThatItsFamilyIsKnownBy)
{
    EXPECT_EQ(Crc16("123456789"), 0x29B1);
    EXPECT_EQ(Crc16(""), 0xFFFF);
}

TEST(ObjectFrame, IsBuiltByteByByte)
{
    EXPECT_EQ(ObjectFrame(FrameKind::Request, {7, 1, 1, {"numero"}}), kRequest);
    EXPECT_EQ(ObjectFrame(FrameKind::Answer, {7, 1, 1, {"OK", "12"}}), kAnswer);
    EXPECT_EQ(ObjectFrame(FrameKind::Request, {0x80, -1, -32768, {}}),
              "\xE5\x80\xFF\xFF\x00\x80\x00\x00\x1C\xE3\x2A"s);
}

TEST(ObjectFrame, IsNoneWhenTheFieldsDoNotFit)
{
    EXPECT_TRUE(ObjectFrame(FrameKind::Request, {0, 0, 0, {std::string(1022, 'x')}}));
    EXPECT_FALSE(ObjectFrame(FrameKind::Request, {0, 0, 0, {std::string(1023, 'x')}}));
    EXPECT_FALSE(ObjectFrame(FrameKind::Request, {0, 0, 0, {std::string(70000, 'x')}}));
    EXPECT_FALSE(ObjectFrame(FrameKind::Request, {0, 0, 0, std::vector<std::string>(513)}));
}

TEST(ObjectFrame, IsReadBackAsItWasSent)
{
    ObjectFrameReader reader(FrameKind::Answer);
    const std::vector<ObjectMessage> messages = Read(reader, kAnswer);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].sequence, 7);
    EXPECT_EQ(messages[0].terminal, 1);
    EXPECT_EQ(messages[0].priority, 1);
    EXPECT_EQ(messages[0].fields, (std::vector<std::string>{"OK", "12"}));
}

TEST(ObjectFrame, IsFoundAmongOtherThings)
{
    EXPECT_EQ(Requests(kRequest + kRequest), 2U);
    EXPECT_EQ(Requests("ATD0123\r" + kRequest + "\x02\x81\x33\r" + kRequest), 2U);
    EXPECT_EQ(Requests("\xE5\xE5\xE5" + kRequest), 1U);
    EXPECT_EQ(Requests(kAnswer), 0U) << "an answer is no request";
    EXPECT_EQ(Requests(kAnswer + kRequest), 1U);
    // A sound header that announces ten bytes more than there are, and the real one behind it.
    const std::string torn = kRequest.substr(0, 14);
    EXPECT_EQ(Requests(torn + kRequest + kRequest), 2U);
}

TEST(ObjectFrame, IsNoneWithAnyBitWrong)
{
    for (std::size_t bit = 0; bit < kRequest.size() * 8; ++bit) {
        std::string spoilt = kRequest;
        char& byte = spoilt[bit / 8];
        byte = static_cast<char>(static_cast<unsigned char>(byte) ^ 1U << bit % 8);
        EXPECT_EQ(Requests(spoilt), 0U) << "bit " << bit;
    }
}

TEST(ObjectFrame, IsNoneCutAtAnyLength)
{
    for (std::size_t length = 0; length < kRequest.size(); ++length)
        EXPECT_EQ(Requests(kRequest.substr(0, length)), 0U) << length;
}

TEST(ObjectFrame, IsNoneWhenItsFieldsPassItsEnd)
{
    // Sound checks, a field of 9 characters in a body that has room for 6.
    EXPECT_EQ(Requests("\xE5\x07\x01\x00\x01\x00\x08\x00\x09\x09\x00numero\x04\x98"s), 0U);
    // Sound checks, one byte where a length should stand.
    EXPECT_EQ(Requests("\xE5\x07\x01\x00\x01\x00\x01\x00\x10\x05\xD0\x1A"s), 0U);
}

TEST(ObjectFrame, ForgottenInTheMiddleLeavesTheNextOneWhole)
{
    ObjectFrameReader reader(FrameKind::Request);
    EXPECT_TRUE(Read(reader, kRequest.substr(0, 12)).empty());
    reader.Forget();
    EXPECT_EQ(Read(reader, kRequest).size(), 1U);
}

}  // namespace
}  // namespace orlo::simulator
