#include "jet/page_allocator.h"

#include "jet/data_page.h"
#include "jet/usage_map.h"
#include "jet/usage_map_writer.h"
#include "tests/jet/power_cut_storage.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";
constexpr RowPointer kMap{2, 0};
constexpr std::size_t kMapBytes = 69;  // speaks of pages 0 to 511

using Pages = std::vector<std::uint32_t>;

/// A file of pages 0 to 600: page 1 holds the map of free pages, page 2 a usage map.
class MapsTest : public testing::Test
{
protected:
    /// `filler` bytes below each map leave it so much less room to grow.
    void Start(std::size_t filler)
    {
        FileBytes bytes = EmptyPages(600);
        const FileBytes map(kMapBytes, 0);
        PutDataPage(bytes, 1, 1, {map, FileBytes(filler, 0)});
        PutDataPage(bytes, 2, 0, {map, FileBytes(filler, 0)});
        storage_.Put(kName, bytes);
        file_ = std::make_unique<PageFile>(kName, OpenMode::ReadWrite, storage_);
    }

    void Set(const Pages& pages)
    {
        file_->Change([&] {
            for (const std::uint32_t page : pages) {
                SetInUsageMap(*file_, kMap, page);
            }
        });
    }

    std::uint32_t Allocate()
    {
        std::uint32_t page = 0;
        file_->Change(
            [&] { page = PageAllocator(*file_).Allocate(PageImage(kJet4.page_bytes, 0xAB)); });
        return page;
    }

    FileBytes Map(RowPointer at)
    {
        const StoredRow row = DataPage(kJet4, file_->Read(at.page)).Row(at.row);
        return {row.bytes.begin(), row.bytes.end()};
    }

    PowerCutStorage storage_;
    std::unique_ptr<PageFile> file_;
};

constexpr std::size_t kAllButAFewBytes = 4096 - 14 - 2 * 2 - kMapBytes - 8;

TEST_F(MapsTest, MapIsLengthenedInItsPlace)
{
    Start(100);
    Set({5, 511});
    EXPECT_EQ(Map(kMap).size(), kMapBytes);
    Set({512, 600});
    EXPECT_EQ(Map(kMap).size(), kMapBytes + 12) << "steps of 4 bytes, 600 / 8 + 1 needed";
    EXPECT_EQ(ReadUsageMap(*file_, kMap), (Pages{5, 511, 512, 600}));
    EXPECT_EQ(Map({2, 1}).size(), 100u) << "the row below has moved and is whole";
}

TEST_F(MapsTest, MapWithoutRoomGoesOnToABitmapPage)
{
    Start(kAllButAFewBytes);
    Set({5, 511});
    EXPECT_EQ(Map(kMap)[0], 0);
    Set({600});
    EXPECT_EQ(Map(kMap).size(), kMapBytes);
    EXPECT_EQ(Map(kMap)[0], 1);
    const auto bitmap = U32(Map(kMap), 1);
    EXPECT_EQ(file_->Read(bitmap).Content()[0], kBitmapPage);
    EXPECT_EQ(ReadUsageMap(*file_, kMap), (Pages{5, 511, 600}));
    file_->Change([&] { ClearInUsageMap(*file_, kMap, 511); });
    EXPECT_EQ(ReadUsageMap(*file_, kMap), (Pages{5, 600}));
}

TEST_F(MapsTest, MapOfFreePagesGrowsWithTheFile)
{
    Start(100);
    EXPECT_EQ(Allocate(), 601u);
    EXPECT_EQ(Map({1, 0}).size(), kMapBytes + 12);
    EXPECT_EQ(Map({1, 0}).back(), 0xFC) << "602 to 607 lie beyond the end, so they are free";
    EXPECT_EQ(Allocate(), 602u);
}

TEST_F(MapsTest, MapOfFreePagesWithoutRoomGoesOnToABitmapPage)
{
    Start(kAllButAFewBytes);
    EXPECT_EQ(Allocate(), 602u) << "601 is the bitmap page";
    EXPECT_EQ(Map({1, 0})[0], 1);
    EXPECT_EQ(U32(Map({1, 0}), 1), 601u);
    EXPECT_EQ(Allocate(), 603u);
    file_->Change([&] { PageAllocator(*file_).Free(602); });
    file_->Change([&] { PageAllocator(*file_).Free(300); });
    EXPECT_EQ(Allocate(), 300u) << "the lowest free page first";
    EXPECT_EQ(Allocate(), 602u);
    EXPECT_EQ(Allocate(), 604u);
}

}  // namespace

}  // namespace jet::test
