#include "jet/usage_map.h"

#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

using Pages = std::vector<std::uint32_t>;

constexpr std::size_t kMapPage = 1;
constexpr std::size_t kBitmapPageNumber = 2;
constexpr std::size_t kPageCount = 24;

/// The pages of a map row, in a file of 24 pages whose page 2 is a bitmap with pages 3 and 17.
Pages PagesOf(const FileBytes& map_row)
{
    FileBytes file = EmptyPages(kPageCount - 1);
    PutDataPage(file, kMapPage, 0, {Hex("00"), map_row});
    Put32(file, kBitmapPageNumber * kJet4.page_bytes, 0x0105);
    file[kBitmapPageNumber * kJet4.page_bytes + 4] = 0x08;
    file[kBitmapPageNumber * kJet4.page_bytes + 6] = 0x02;
    const ScratchFolder folder;
    PageFile pages(folder.Write("map.mdb", file));
    return ReadUsageMap(pages, {kMapPage, 1});
}

TEST(UsageMap, InlineBits)
{
    EXPECT_EQ(PagesOf(Hex("00 00000000 02 81 00")), (Pages{1, 8, 15}));
    EXPECT_EQ(PagesOf(Hex("00 10000000 81")), (Pages{16, 23}));
    EXPECT_EQ(PagesOf(Hex("00 00000000")), Pages{});
}

TEST(UsageMap, ByReference)
{
    EXPECT_EQ(PagesOf(Hex("01 02000000 00000000")), (Pages{3, 17}));
}

TEST(UsageMap, NoMapMeansNoPages)
{
    PageFile file(Sample("nimbo-empty-jet4.mdb"));
    EXPECT_EQ(ReadUsageMap(file, {0, 5}), Pages{});
}

TEST(UsageMap, DamageIsNoticed)
{
    struct Case {
        const char* name;
        const char* row;
    };
    const Case kCases[] = {
        {"too short", "00 000000"},
        {"unknown form", "02 00000000 00"},
        {"the header page", "00 00000000 01"},
        {"page behind the end of the file", "00 18000000 01"},
        {"first page out of range", "00 FFFFFFFF FF"},
        {"bitmap page out of range", "01 18000000"},
        {"bitmap page of another type", "01 01000000"},
        {"second bitmap is behind the end of the file", "01 00000000 02000000"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(ErrorNumberOf([&] { PagesOf(Hex(c.row)); }), kDamagedFile) << c.name;
    }
}

}  // namespace

}  // namespace jet::test
