#include "jet/index_tree.h"

#include "tests/jet/power_cut_storage.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <algorithm>

// Trees in forms that other writers leave: nodes without a tail, nodes with one child, levels that
// are not noted. Page 1 holds the map of free pages, page 2 that of the index, page 3 the root.

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";
constexpr std::uint32_t kOwner = 9;
constexpr std::uint32_t kFirst = 3;

using Lines = std::vector<std::string>;
using TreePages = std::vector<IndexPageContent>;

class Tree
{
public:
    explicit Tree(const TreePages& pages)
    {
        FileBytes bytes = EmptyPages(pages.size() + kFirst - 1);
        FileBytes map(69, 0);
        PutDataPage(bytes, 1, 1, {map, map});
        for (std::uint32_t page = kFirst; page < kFirst + pages.size(); ++page) {
            map[5 + page / 8] |= static_cast<std::uint8_t>(1 << page % 8);
            PutIndexPage(bytes, page, kOwner, pages[page - kFirst]);
        }
        PutDataPage(bytes, 2, 0, {map});
        storage_.Put(kName, bytes);
        file_ = std::make_unique<PageFile>(kName, OpenMode::ReadWrite, storage_);
        index_.root = kFirst;
        index_.map = {2, 0};
    }

    void Insert(const FileBytes& entry)
    {
        file_->Change([&] { IndexTree(*file_, kOwner, index_).Insert(entry); });
    }
    void Erase(const FileBytes& entry)
    {
        file_->Change([&] { IndexTree(*file_, kOwner, index_).Erase(entry); });
    }

    std::uint8_t Level(std::uint32_t page) { return file_->Read(page).Content()[26]; }

    /// A line for each page that the map of the index lists: number, entries by their second byte
    /// (in a node with their child), tail.
    Lines Pages()
    {
        Lines lines;
        for (std::uint32_t page = 0; page < 512; ++page) {
            const Bytes map = file_->Read(2).Content().last(64);
            if ((map[page / 8] >> page % 8 & 1) != 0) {
                lines.push_back(Describe(page));
            }
        }
        return lines;
    }

private:
    std::string Describe(std::uint32_t number)
    {
        const Page page = file_->Read(number);
        const Bytes content = page.Content();
        std::string line = std::to_string(number) + ":";
        std::size_t start = 0;
        for (std::size_t end = 1; end < 3616; ++end) {
            if ((content[27 + end / 8] >> end % 8 & 1) != 0) {
                line += " " + std::to_string(content[480 + start + 1]);
                line += content[0] == 3 ? ">" + std::to_string(content[480 + end - 1]) : "";
                start = end;
            }
        }
        return line + (content[20] != 0 ? " tail " + std::to_string(content[20]) : "");
    }

    PowerCutStorage storage_;
    std::unique_ptr<PageFile> file_;
    RealIndex index_;
};

constexpr std::uint8_t kNode = 3;
constexpr std::uint8_t kLeaf = 4;

FileBytes Entry(std::uint8_t key)
{
    return {0x7F, key, 0, 0, 7, key};
}

FileBytes ChildEntry(std::uint8_t key, std::uint8_t child)
{
    return {0x7F, key, 0, 0, 7, key, 0, 0, 0, child};
}

TEST(IndexTree, EntryBehindTheLastListedChildTurnsThatIntoTheTail)
{
    Tree tree({
        {kNode, {ChildEntry(20, 4), ChildEntry(40, 5)}},
        {kLeaf, {Entry(10), Entry(20)}, 0, 5},
        {kLeaf, {Entry(30), Entry(40)}, 4, 0},
    });
    tree.Insert(Entry(50));
    EXPECT_EQ(tree.Pages(), (Lines{"3: 20>4 tail 5", "4: 10 20", "5: 30 40 50"}));
}

TEST(IndexTree, NodeGoesWithItsOnlyChild)
{
    Tree tree({
        {kNode, {ChildEntry(10, 4)}, 0, 0, 5},
        {kNode, {ChildEntry(10, 6)}, 0, 5},
        {kNode, {ChildEntry(20, 7)}, 4, 0, 8},
        {kLeaf, {Entry(10)}, 0, 7},
        {kLeaf, {Entry(20)}, 6, 8},
        {kLeaf, {Entry(30)}, 7, 0},
    });
    tree.Erase(Entry(10));
    EXPECT_EQ(tree.Pages(), (Lines{"3: 20>7 tail 8", "7: 20", "8: 30"}));
}

TEST(IndexTree, LastEntryBelowOnlyChildrenLeavesAnEmptyRoot)
{
    const TreePages pages{
        {kNode, {ChildEntry(10, 4)}},
        {kNode, {ChildEntry(10, 5)}},
        {kLeaf, {Entry(10)}},
    };
    Tree erased(pages);
    erased.Erase(Entry(10));
    EXPECT_EQ(erased.Pages(), Lines{"3:"});
    Tree added(pages);
    added.Insert(Entry(20));
    EXPECT_EQ(added.Pages(), Lines{"3: 10 20"});
}

TEST(IndexTree, OnlyChildOfAnOnlyChildStaysListed)
{
    Tree tree({
        {kNode, {ChildEntry(20, 4)}, 0, 0, 5},
        {kNode, {ChildEntry(20, 6)}, 0, 5},
        {kNode, {ChildEntry(30, 7)}, 4, 0},
        {kNode, {ChildEntry(20, 8)}, 0, 7},
        {kNode, {ChildEntry(30, 9)}, 6, 0},
        {kLeaf, {Entry(10), Entry(20)}, 0, 9},
        {kLeaf, {Entry(30)}, 8, 0},
    });
    tree.Insert(Entry(15));
    EXPECT_EQ(tree.Pages(),
              (Lines{"3: 20>6 tail 7", "6: 20>8", "7: 30>9", "8: 10 15 20", "9: 30"}));
}

// Four entries of this length fill a page, on a leaf and in a node.
FileBytes LongEntry(std::uint8_t key, std::uint8_t child = 0)
{
    FileBytes entry(880, key);
    entry.insert(entry.end(), {0, 0, 7, key});
    if (child != 0) {
        entry.insert(entry.end(), {0, 0, 0, child});
    }
    return entry;
}

TEST(IndexTree, LevelOfANewRootIsCountedWhereLevelsAreNotNoted)
{
    Tree tree({
        {kNode, {LongEntry(40, 4), LongEntry(50, 5), LongEntry(60, 6), LongEntry(70, 7)}, 0, 0, 8},
        {kLeaf, {LongEntry(10), LongEntry(20), LongEntry(30), LongEntry(40)}, 0, 5},
        {kLeaf, {LongEntry(50)}, 4, 6},
        {kLeaf, {LongEntry(60)}, 5, 7},
        {kLeaf, {LongEntry(70)}, 6, 8},
        {kLeaf, {LongEntry(80)}, 7, 0},
    });
    tree.Insert(LongEntry(25));
    EXPECT_EQ(tree.Level(3), 2) << "leaves, nodes, root";
    EXPECT_EQ(tree.Pages(),
              (Lines{"3: 40>10 tail 11", "4: 10 20", "5: 50", "6: 60", "7: 70", "8: 80",
                     "9: 25 30 40", "10: 20>4 tail 9", "11: 50>5 60>6 70>7 tail 8"}));
}

}  // namespace

}  // namespace jet::test
