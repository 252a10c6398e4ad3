#include "jet/long_value.h"

#include "jet/data_page.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

/// Rows 0..7 of page 1, a long-value page, and row 0 of page 2, which is none.
FileBytes LongValueFile()
{
    FileBytes file = EmptyPages(2);
    PutDataPage(file, 1, DataPage::kLongValueOwner,
                {
                    Hex("61626364"),         // 0: a whole value
                    Hex("02010000 6162"),    // 1: piece, followed by 2
                    Hex("03010000 63"),      // 2: piece, followed by 3
                    Hex("00000000 646566"),  // 3: last piece
                    Hex("05010000 78"),      // 4: piece of a circle
                    Hex("04010000 79"),      // 5: the other one
                    Hex("00000000"),         // 6: a piece without data
                    Hex("6162"),             // 7: deleted
                });
    const std::size_t entry7 = kJet4.page_bytes + 14 + 2 * 7;
    file[entry7 + 1] |= 0xC0;
    PutDataPage(file, 2, 9, {Hex("61626364")});
    return file;
}

std::string ReadFrom(const char* field)
{
    const ScratchFolder folder;
    PageFile file(folder.Write("long.mdb", LongValueFile()));
    const auto value = ReadLongValue(file, Hex(field));
    return {value.begin(), value.end()};
}

TEST(LongValue, AllThreeKinds)
{
    EXPECT_EQ(ReadFrom("03000080 00000000 00000000 616263"), "abc");
    EXPECT_EQ(ReadFrom("00000080 00000000 00000000"), "");
    EXPECT_EQ(ReadFrom("04000040 00010000 00000000"), "abcd");
    EXPECT_EQ(ReadFrom("06000000 01010000 77000000"), "abcdef");
    EXPECT_EQ(ReadFrom("00000000 00000000 00000000"), "");
}

TEST(LongValue, DamageIsNoticed)
{
    struct Case {
        const char* name;
        const char* field;
    };
    const Case kCases[] = {
        {"no header", "03000080 00000000 000000"},
        {"fewer bytes in the row than said", "04000080 00000000 00000000 616263"},
        {"unknown kind", "040000C0 00010000 00000000"},
        {"fewer bytes on the page than said", "05000040 00010000 00000000"},
        {"no such row", "04000040 08010000 00000000"},
        {"no such page", "04000040 00030000 00000000"},
        {"deleted row", "02000040 07010000 00000000"},
        {"page of a table", "04000040 00020000 00000000"},
        {"chain ends too early", "07000000 01010000 00000000"},
        {"chain goes on too long", "03000000 01010000 00000000"},
        {"chain without data", "01000000 06010000 00000000"},
        {"chain in a circle", "64000000 04010000 00000000"},
        {"longer than the file", "FFFFFF3F 04010000 00000000"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(ErrorNumberOf([&] { ReadFrom(c.field); }), kDamagedFile) << c.name;
    }
}

}  // namespace

}  // namespace jet::test
