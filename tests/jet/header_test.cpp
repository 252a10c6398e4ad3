#include "jet/header.h"

#include "jet/error.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <functional>

namespace jet::test
{

namespace
{

FileBytes Header(const char* sample)
{
    FileBytes file = ReadFile(Sample(sample));
    file.resize(kHeaderBytes);
    return file;
}

TEST(Header, MaskIsTheKnownKeyStream)
{
    const FileBytes known = Hex("B56F0362 6108C255 EBA96772");
    const auto mask = HeaderMask();
    EXPECT_TRUE(std::equal(known.begin(), known.end(), mask.begin()));
}

TEST(Header, RecognisesBothVersions)
{
    EXPECT_EQ(&RecogniseHeader(Header("nimbo-empty-97.mdb")), &kJet3);
    EXPECT_EQ(&RecogniseHeader(Header("nimbo-empty-jet4.mdb")), &kJet4);
}

TEST(Header, PasswordIsNoObstacle)
{
    EXPECT_EQ(&RecogniseHeader(Header("password-jet3.mdb")), &kJet3);
    EXPECT_EQ(&RecogniseHeader(Header("password-jet4.mdb")), &kJet4);
}

TEST(Header, RefusesWhatItCannotRead)
{
    struct Case {
        const char* name;
        std::function<void(FileBytes&)> spoil;
        int error;
    };
    const Case kCases[] = {
        {"empty", [](FileBytes& bytes) { bytes.clear(); }, kUnrecognisedFormat},
        {"too short", [](FileBytes& bytes) { bytes.pop_back(); }, kUnrecognisedFormat},
        {"signature", [](FileBytes& bytes) { bytes[1] = 2; }, kUnrecognisedFormat},
        {"other engine", [](FileBytes& bytes) { bytes[13] = 'A'; }, kUnrecognisedFormat},
        {"name not ended", [](FileBytes& bytes) { bytes[0x13] = 'x'; }, kUnrecognisedFormat},
        {"later version", [](FileBytes& bytes) { bytes[0x14] = 2; }, kUnrecognisedFormat},
        {"other code page", [](FileBytes& bytes) { bytes[0x3C] ^= 7; }, kUnrecognisedFormat},
        {"encoded", [](FileBytes& bytes) { bytes[0x3E] ^= 1; }, kEncodedFile},
        {"encoded, high byte", [](FileBytes& bytes) { bytes[0x41] ^= 0x80; }, kEncodedFile},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        FileBytes bytes = Header("nimbo-empty-97.mdb");
        c.spoil(bytes);
        EXPECT_EQ(ErrorNumberOf([&] { RecogniseHeader(bytes); }), c.error);
    }
}

TEST(Header, CodePageIsOfNoUseInJet4)
{
    FileBytes bytes = Header("nimbo-empty-jet4.mdb");
    bytes[0x3C] ^= 7;
    EXPECT_EQ(&RecogniseHeader(bytes), &kJet4);
}

}  // namespace

}  // namespace jet::test
