#include "simulator/transmission.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace orlo::simulator
{
namespace
{

using std::chrono::milliseconds;

Transmission Send(const char* data, std::initializer_list<const char*> names)
{
    std::vector<Fault> faults;
    for (const char* name : names) faults.push_back(ParseFault(name));
    return Transmit(1, data, faults);
}

TEST(Transmission, IsTheFrameWhenNothingGoesWrong)
{
    const Transmission sent = Send("OK", {});
    EXPECT_EQ(sent.bytes,
              "\x01\x81"
              "OK\x9C\r");
    EXPECT_EQ(sent.late, milliseconds(0));
    EXPECT_EQ(sent.byte_pause, milliseconds(0));
    EXPECT_FALSE(sent.hang_up);
}

TEST(Transmission, IsSpoiltByEachFaultInItsWay)
{
    const std::pair<const char*, std::string> cases[] = {
        {"silenzio", ""},
        {"checksum-errato",
         "\x01\x81"
         "OK\x9D\r"},
        {"senza-cr",
         "\x01\x81"
         "OK\x9C"},
        {"troncata",
         "\x01\x81"
         "O"},
        {"troncata=5",
         "\x01\x81"
         "OK\x9C"},
        {"troncata=99",
         "\x01\x81"
         "OK\x9C\r"},
        {"byte-mancanti",
         "\x01\x81"
         "K\x9C\r"},
        {"byte-mancanti=2", "\x01\x81\x9C\r"},
        {"byte-mancanti=99", "\x01\x81\r"},
        {"rumore-prima=3",
         "\x7E\x55\xFF\x01\x81"
         "OK\x9C\r"},
        {"rumore-dopo",
         "\x01\x81"
         "OK\x9C\r\x7E\x55\xFF\x2A\x7E"},
        {"cr-prima",
         "\r\x01\x81"
         "OK\x9C\r"},
        {"caduta",
         "\x01\x81"
         "O"},
    };
    for (const auto& [fault, bytes] : cases) {
        SCOPED_TRACE(fault);
        EXPECT_EQ(Send("OK", {fault}).bytes, bytes);
    }
}

TEST(Transmission, TellsTheTimesOfItsFaults)
{
    EXPECT_EQ(Send("OK", {"ritardo=120"}).late, milliseconds(120));
    EXPECT_EQ(Send("OK", {"byte-singoli=8"}).byte_pause, milliseconds(8));
    EXPECT_EQ(Send("OK", {"caduta=40"}).hang_up, milliseconds(40));
}

TEST(Transmission, CutsTheLastRecordShortUnderAGoodChecksum)
{
    // Data of the spoilt answer: 22 of the 26 characters, then END.
    EXPECT_EQ(Send("90000001000104050001020304END", {"record-corto"}).bytes,
              "\x01\x81"
              "9000000100010405000102END\x90\r");
    EXPECT_EQ(Send("END", {"record-corto"}).bytes,
              "\x01\x81"
              "END\xD9\r");
    EXPECT_EQ(Send("OK", {"record-corto"}).bytes,
              "\x01\x81"
              "OK\x9C\r");
}

TEST(Transmission, CombinesFaults)
{
    EXPECT_EQ(Send("OK", {"rumore-prima=1", "checksum-errato", "senza-cr", "cr-prima"}).bytes,
              "\r\x7E\x01\x81"
              "OK\x9D");
}

}  // namespace
}  // namespace orlo::simulator
