#include "jet/index_order.h"

#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace jet::test
{

namespace
{

constexpr std::uint32_t kOwner = 9;
constexpr std::size_t kPage = kJet4.page_bytes;

struct PageContent {
    PageType type;
    std::vector<const char*> entries;
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
    std::uint32_t tail = 0;
    std::uint32_t prefix = 0;
};

/// A file of index pages, page 1 the root. The entries are as stored.
FileBytes IndexFile(const std::vector<PageContent>& pages)
{
    FileBytes file = EmptyPages(pages.size());
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PageContent& page = pages[i];
        std::vector<FileBytes> entries;
        std::ranges::transform(page.entries, std::back_inserter(entries), Hex);
        PutIndexPage(file, 1 + i, kOwner,
                     {page.type, entries, page.previous, page.next, page.tail, page.prefix});
    }
    return file;
}

using Rows = std::vector<std::uint16_t>;

/// Walks an index of one-byte keys whose entries point to rows of page 7.
class Walk
{
public:
    explicit Walk(const FileBytes& bytes)
        : file_(folder_.Write("index.mdb", bytes)), order_(file_, kOwner, 1)
    {
    }

    Rows Forwards()
    {
        Rows rows;
        for (auto row = order_.First(); row; row = order_.Next()) {
            rows.push_back(row->row);
        }
        return rows;
    }

    Rows Backwards()
    {
        Rows rows;
        for (auto row = order_.Last(); row; row = order_.Previous()) {
            rows.push_back(row->row);
        }
        return rows;
    }

    std::optional<RowPointer> Seek(const char* key) { return order_.Seek(Hex(key)); }
    std::optional<RowPointer> Next() { return order_.Next(); }

private:
    ScratchFolder folder_;
    PageFile file_;
    IndexOrder order_;
};

FileBytes TwoLevels()
{
    return IndexFile({
        {kIndexNode, {"7F20 00000702 00000002"}, 0, 0, 3},
        {kIndexLeaf, {"7F10 00000701", "7F20 00000702"}, 0, 3},
        {kIndexLeaf, {"7F30 00000703", "7F30 00000704", "7F40 00000705"}, 2, 0},
    });
}

TEST(IndexOrder, TwoLevelsWithTail)
{
    Walk walk(TwoLevels());
    EXPECT_EQ(walk.Forwards(), (Rows{1, 2, 3, 4, 5}));
    EXPECT_EQ(walk.Backwards(), (Rows{5, 4, 3, 2, 1}));
}

TEST(IndexOrder, SeekFindsTheFirstOfEqualKeys)
{
    Walk walk(TwoLevels());
    EXPECT_EQ(walk.Seek("7F10"), (RowPointer{7, 1}));
    EXPECT_EQ(walk.Seek("7F20"), (RowPointer{7, 2}));
    EXPECT_EQ(walk.Seek("7F30"), (RowPointer{7, 3}));
    EXPECT_EQ(walk.Next(), (RowPointer{7, 4}));
    EXPECT_EQ(walk.Seek("7F40"), (RowPointer{7, 5}));
    for (const char* absent :
         {"00", "7F0F", "7F11", "7F21", "7F3F", "7F41", "7F", "7F3000", "FF"}) {
        EXPECT_EQ(walk.Seek(absent), std::nullopt) << absent;
    }
}

TEST(IndexOrder, EqualKeysOnBothSidesOfALeafBoundary)
{
    Walk walk(IndexFile({
        {kIndexNode, {"7F20 00000702 00000002"}, 0, 0, 3},
        {kIndexLeaf, {"7F10 00000701", "7F20 00000702"}, 0, 3},
        {kIndexLeaf, {"7F20 00000703"}, 2, 0},
    }));
    EXPECT_EQ(walk.Seek("7F20"), (RowPointer{7, 2}));
    EXPECT_EQ(walk.Next(), (RowPointer{7, 3}));
    EXPECT_EQ(walk.Next(), std::nullopt);
}

// The key of an empty binary value is the beginning of all others, and its row pointer decides
// where among them it comes.
TEST(IndexOrder, KeyThatIsTheBeginningOfOthersIsFoundBehindThem)
{
    Walk walk(IndexFile({
        {kIndexNode, {"7F 0000000000000000 08 00000703 00000002"}, 0, 0, 3},
        {kIndexLeaf, {"7F 0000000000000000 07 00000702", "7F 0000000000000000 08 00000703"}, 0, 3},
        {kIndexLeaf, {"7F 00000701", "7F 1000000000000000 01 00000704"}, 2, 0},
    }));
    EXPECT_EQ(walk.Seek("7F"), (RowPointer{7, 1}));
    EXPECT_EQ(walk.Next(), (RowPointer{7, 4}));
    EXPECT_EQ(walk.Seek("7F 0000000000000000 07"), (RowPointer{7, 2}));
    EXPECT_EQ(walk.Seek("7F 0000000000000000"), std::nullopt);
}

TEST(IndexOrder, PrefixIsTakenFromTheFirstEntry)
{
    // The prefix may reach into the row pointer.
    Walk walk(IndexFile({{kIndexLeaf, {"7F10 00000701", "02", "03"}, 0, 0, 0, 5}}));
    EXPECT_EQ(walk.Forwards(), (Rows{1, 2, 3}));
    EXPECT_EQ(walk.Seek("7F10"), (RowPointer{7, 1}));
}

TEST(IndexOrder, NodeWithoutTail)
{
    Walk walk(IndexFile({
        {kIndexNode, {"7F20 00000702 00000002", "7F40 00000704 00000003"}},
        {kIndexLeaf, {"7F10 00000701", "7F20 00000702"}, 0, 3},
        {kIndexLeaf, {"7F30 00000703", "7F40 00000704"}, 2, 0},
    }));
    EXPECT_EQ(walk.Backwards(), (Rows{4, 3, 2, 1}));
    EXPECT_EQ(walk.Seek("7F40"), (RowPointer{7, 4}));
    EXPECT_EQ(walk.Seek("7F50"), std::nullopt);
}

TEST(IndexOrder, EmptyLeafBetweenOthersIsPassed)
{
    Walk walk(IndexFile({
        {kIndexNode, {"7F10 00000701 00000002", "7F20 00000702 00000003"}, 0, 0, 4},
        {kIndexLeaf, {"7F10 00000701"}, 0, 3},
        {kIndexLeaf, {}, 2, 4},
        {kIndexLeaf, {"7F30 00000703"}, 3, 0},
    }));
    EXPECT_EQ(walk.Forwards(), (Rows{1, 3}));
    EXPECT_EQ(walk.Backwards(), (Rows{3, 1}));
    EXPECT_EQ(walk.Seek("7F20"), std::nullopt);
}

TEST(IndexOrder, EmptyTree)
{
    Walk walk(IndexFile({{kIndexLeaf, {}}}));
    EXPECT_EQ(walk.Forwards(), Rows{});
    EXPECT_EQ(walk.Backwards(), Rows{});
    EXPECT_EQ(walk.Seek("7F20"), std::nullopt);
}

TEST(IndexOrder, DamageIsNoticed)
{
    struct Case {
        const char* name;
        std::vector<PageContent> pages;
    };
    const Case kCases[] = {
        {"entry too short", {{kIndexLeaf, {"7F100007"}}}},
        {"prefix longer than the first entry", {{kIndexLeaf, {"7F10 00000701"}, 0, 0, 0, 7}}},
        {"not ascending", {{kIndexLeaf, {"7F20 00000701", "7F10 00000702"}}}},
        {"same entry twice", {{kIndexLeaf, {"7F20 00000701", "7F20 00000701"}}}},
        {"leaf followed by itself", {{kIndexLeaf, {"7F10 00000701"}, 1, 1}}},
        {"empty leaves in a circle", {{kIndexLeaf, {}, 2, 2}, {kIndexLeaf, {}, 1, 1}}},
        {"leaf followed by a node",
         {{kIndexLeaf, {"7F10 00000701"}, 2, 2}, {kIndexNode, {}, 0, 0, 1}}},
        {"node without children", {{kIndexNode, {}}}},
        {"node that is its own child", {{kIndexNode, {"7F10 00000701 00000001"}, 0, 0, 1}}},
        {"child out of range", {{kIndexNode, {"7F10 00000701 00000063"}, 0, 0, 0x63}}},
        {"root of another type", {{kDataPage, {}}}},
    };
    for (const Case& c : kCases) {
        const FileBytes bytes = IndexFile(c.pages);
        EXPECT_EQ(ErrorNumberOf([&] { Walk(bytes).Forwards(); }), kDamagedFile) << c.name;
        EXPECT_EQ(ErrorNumberOf([&] { Walk(bytes).Backwards(); }), kDamagedFile) << c.name;
    }
}

TEST(IndexOrder, PageOfAnotherTableIsDamage)
{
    FileBytes bytes = TwoLevels();
    Put32(bytes, 2 * kPage + 4, kOwner + 1);
    EXPECT_EQ(ErrorNumberOf([&] { Walk(bytes).Forwards(); }), kDamagedFile);
}

TEST(IndexOrder, EntryBehindThePageIsDamage)
{
    FileBytes bytes = IndexFile({{kIndexLeaf, {"7F10 00000701"}}});
    bytes[kPage + 27 + 452] = 0x02;
    EXPECT_EQ(ErrorNumberOf([&] { Walk(bytes).Forwards(); }), kDamagedFile);
}

}  // namespace

}  // namespace jet::test
