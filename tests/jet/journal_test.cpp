#include "jet/journal.h"

#include "jet/page_file.h"
#include "tests/jet/power_cut_storage.h"

#include <gtest/gtest.h>

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";
constexpr const char* kJournal = "nimbo.mdb-journal";
constexpr std::size_t kPage = 4096;

class JournalFile
{
public:
    JournalFile() { storage_.Put(kJournal, {}); }

    StoredFile& Open()
    {
        file_ = storage_.Open(kJournal, OpenMode::ReadWrite);
        return *file_;
    }
    void Replace(const FileBytes& bytes) { storage_.Put(kJournal, bytes); }
    FileBytes Content() const { return storage_.Content(kJournal); }

private:
    PowerCutStorage storage_;
    std::unique_ptr<StoredFile> file_;
};

UndoImages TwoPages()
{
    return {9, {{3, PageImage(kPage, 0x33)}, {7, PageImage(kPage, 0)}}};
}

TEST(Journal, GivesBackWhatWasWritten)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    const auto images = ReadJournal(journal.Open(), kPage);
    ASSERT_TRUE(images);
    EXPECT_EQ(images->page_count, 9u);
    EXPECT_EQ(images->pages, TwoPages().pages);
}

TEST(Journal, OfNoPagesStillTellsTheLength)
{
    JournalFile journal;
    WriteJournal(journal.Open(), {5, {}}, kPage);
    const auto images = ReadJournal(journal.Open(), kPage);
    ASSERT_TRUE(images);
    EXPECT_EQ(images->page_count, 5u);
}

TEST(Journal, EmptyOrOfZerosIsNotValid)
{
    JournalFile journal;
    EXPECT_FALSE(ReadJournal(journal.Open(), kPage));
    journal.Replace(FileBytes(3 * kPage, 0));
    EXPECT_FALSE(ReadJournal(journal.Open(), kPage));
}

TEST(Journal, IsNotValidOnceInvalidated)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    InvalidateJournal(journal.Open());
    EXPECT_FALSE(ReadJournal(journal.Open(), kPage));
}

TEST(Journal, CutAnywhereIsNotValid)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    const FileBytes whole = journal.Content();
    for (std::size_t length = 0; length < whole.size(); length += 97) {
        journal.Replace({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
        EXPECT_FALSE(ReadJournal(journal.Open(), kPage)) << length;
    }
}

TEST(Journal, WithAnyByteChangedIsNotValid)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    const FileBytes whole = journal.Content();
    for (std::size_t at = 0; at < whole.size(); at += at < 40 ? 1 : 83) {
        if (at >= 40 && at < 512) {
            continue;  // between header and records nothing counts
        }
        FileBytes changed = whole;
        changed[at] ^= 0x10;
        journal.Replace(changed);
        EXPECT_FALSE(ReadJournal(journal.Open(), kPage)) << at;
    }
}

// Invariant 3: the records of an earlier change lie where the later one expects its own.
TEST(Journal, RecordsOfAnotherChangeDoNotCount)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    const FileBytes earlier = journal.Content();
    WriteJournal(journal.Open(), TwoPages(), kPage);
    FileBytes mixed = journal.Content();
    std::copy(earlier.begin() + 512, earlier.end(), mixed.begin() + 512);
    journal.Replace(mixed);
    EXPECT_FALSE(ReadJournal(journal.Open(), kPage));
}

TEST(Journal, OfAnotherPageSizeIsRefused)
{
    JournalFile journal;
    WriteJournal(journal.Open(), TwoPages(), kPage);
    EXPECT_EQ(ErrorNumberOf([&] { ReadJournal(journal.Open(), 2048); }), kDamagedFile);
}

/// Changes pages 1 and 3 and adds one.
void ChangePages(PageFile& file)
{
    file.Change([&] {
        file.Write(1, PageImage(kPage, 0x11));
        file.Write(3, PageImage(kPage, 0x13));
        EXPECT_EQ(file.Append(PageImage(kPage, 0x14)), 5u);
    });
}

class PageFileCrash : public testing::Test
{
protected:
    PageFileCrash()
    {
        storage_.Put(kName, before_);
        PageFile file(kName, OpenMode::ReadWrite, storage_);
        ChangePages(file);
        after_ = storage_.Content(kName);
    }

    void Reset()
    {
        storage_ = {};
        storage_.Put(kName, before_);
    }

    const FileBytes before_ = EmptyPages(4);
    FileBytes after_;
    PowerCutStorage storage_;
};

TEST_F(PageFileCrash, ChangeIsOnDiskAndJournalGoneAtClose)
{
    ASSERT_EQ(after_.size(), before_.size() + kPage);
    EXPECT_EQ(after_[1 * kPage], 0x11);
    EXPECT_EQ(after_[2 * kPage], 0x00);
    EXPECT_EQ(after_[3 * kPage], 0x13);
    EXPECT_EQ(after_[5 * kPage], 0x14);
    EXPECT_FALSE(storage_.Exists(kJournal));
}

// Invariants 1 to 6: at every step, with 20 kinds of luck, and again while it is being taken back.
TEST_F(PageFileCrash, PowerCutAtEveryStepLeavesBeforeOrAfter)
{
    int cuts = 0;
    int back = 0;
    for (int step = 1; step != 0; ++step) {
        bool finished = false;
        for (unsigned seed = 0; seed < 20; ++seed) {
            SCOPED_TRACE("step " + std::to_string(step) + ", seed " + std::to_string(seed));
            std::mt19937 random(seed);
            Reset();
            storage_.TroubleAt(step, PowerCutStorage::Trouble::PowerCut);
            bool acknowledged = false;
            try {
                PageFile file(kName, OpenMode::ReadWrite, storage_);
                ChangePages(file);
                acknowledged = true;
            } catch (const PowerCut&) {
                ++cuts;
            }
            finished = storage_.Steps() < step;
            storage_.Restart(random);
            storage_.TroubleAt(1 + static_cast<int>(seed) % 4, PowerCutStorage::Trouble::PowerCut);
            try {
                PageFile file(kName, OpenMode::ReadWrite, storage_);
            } catch (const PowerCut&) {
            }
            storage_.Restart(random);
            {
                PageFile file(kName, OpenMode::ReadWrite, storage_);
            }
            const FileBytes found = storage_.Content(kName);
            ASSERT_TRUE(found == after_ || (!acknowledged && found == before_));
            back += found == before_ ? 1 : 0;
        }
        if (finished) {
            break;
        }
    }
    EXPECT_GT(cuts, 150);
    EXPECT_GT(back, 50);
}

TEST_F(PageFileCrash, DiskErrorAtEveryStepLeavesBeforeOrAfter)
{
    using Trouble = PowerCutStorage::Trouble;
    for (const Trouble trouble : {Trouble::ErrorOnce, Trouble::ErrorForever}) {
        for (int step = 1; step < 20; ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Reset();
            storage_.TroubleAt(step, trouble);
            const int error = ErrorNumberOf([&] {
                PageFile file(kName, OpenMode::ReadWrite, storage_);
                ChangePages(file);
            });
            const bool in_time = storage_.Steps() >= step;
            storage_.TroubleAt(0, trouble);
            {
                PageFile file(kName, OpenMode::ReadWrite, storage_);
            }
            const FileBytes found = storage_.Content(kName);
            ASSERT_TRUE(found == after_ || found == before_);
            ASSERT_TRUE(error == 0 ? found == after_ : in_time);
        }
    }
}

TEST_F(PageFileCrash, AfterAnErrorThatWasTakenBackTheChangeCanBeRepeated)
{
    Reset();
    PageFile file(kName, OpenMode::ReadWrite, storage_);
    // Journal, its sync, first page: that one fails.
    storage_.TroubleAt(3, PowerCutStorage::Trouble::ErrorOnce);
    EXPECT_EQ(ErrorNumberOf([&] { ChangePages(file); }), kDiskError);
    EXPECT_EQ(storage_.Content(kName), before_);
    EXPECT_EQ(file.PageCount(), 5u);
    ChangePages(file);
    EXPECT_EQ(storage_.Content(kName), after_);
}

TEST_F(PageFileCrash, FileThatCannotBeWrittenIsReadThroughTheJournal)
{
    Reset();
    // Two steps for the new journal, two to fill it, then three pages: the sync never comes.
    storage_.TroubleAt(8, PowerCutStorage::Trouble::PowerCut);
    EXPECT_THROW(
        {
            PageFile file(kName, OpenMode::ReadWrite, storage_);
            ChangePages(file);
        },
        PowerCut);
    FileBytes torn = storage_.Content(kName);
    const FileBytes journal = storage_.Content(kJournal);
    ASSERT_EQ(torn, after_);
    storage_ = {};
    storage_.Put(kName, torn);
    storage_.Put(kJournal, journal);
    storage_.SetReadOnly(true);
    {
        PageFile file(kName, OpenMode::ReadOnly, storage_);
        EXPECT_EQ(file.PageCount(), 5u);
        EXPECT_EQ(file.Read(1).Content()[0], 0x00);
        EXPECT_EQ(file.Read(3).Content()[0], 0x00);
    }
    EXPECT_EQ(storage_.Content(kName), torn);
    storage_.SetReadOnly(false);
    {
        PageFile file(kName, OpenMode::ReadOnly, storage_);
    }
    EXPECT_EQ(storage_.Content(kName), before_) << "who may write takes the change back";
}

TEST_F(PageFileCrash, SecondWriterIsRefusedUntilTheFirstCloses)
{
    auto first = std::make_unique<PageFile>(kName, OpenMode::ReadWrite, storage_);
    EXPECT_EQ(ErrorNumberOf([&] { PageFile second(kName, OpenMode::ReadWrite, storage_); }),
              kInUse);
    EXPECT_EQ(ErrorNumberOf([&] { PageFile reader(kName, OpenMode::ReadOnly, storage_); }), 0);
    first.reset();
    EXPECT_EQ(ErrorNumberOf([&] { PageFile second(kName, OpenMode::ReadWrite, storage_); }), 0);
}

TEST(PageFile, RealFilesExcludeASecondWriterToo)
{
    const ScratchFolder folder;
    const auto path = folder.Write(kName, EmptyPages(4));
    PageFile first(path, OpenMode::ReadWrite);
    EXPECT_EQ(ErrorNumberOf([&] { PageFile second(path, OpenMode::ReadWrite); }), kInUse);
    EXPECT_EQ(ErrorNumberOf([&] { PageFile reader(path, OpenMode::ReadOnly); }), 0);
    ChangePages(first);
    EXPECT_EQ(ReadFile(path).size(), 6 * kPage);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / kJournal));
}

TEST(PageFile, OpenForReadingRefusesChanges)
{
    const ScratchFolder folder;
    PageFile file(folder.Write(kName, EmptyPages(4)));
    EXPECT_EQ(ErrorNumberOf([&] { ChangePages(file); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { file.BeginTransaction(); }), kReadOnly);
}

TEST(PageFile, ChangeThatThrowsLeavesTheTransactionAsItWas)
{
    const ScratchFolder folder;
    PageFile file(folder.Write(kName, EmptyPages(4)), OpenMode::ReadWrite);
    file.BeginTransaction();
    file.Change([&] { file.Write(2, PageImage(kPage, 0x22)); });
    EXPECT_EQ(ErrorNumberOf([&] {
                  file.Change([&] {
                      file.Write(2, PageImage(kPage, 0x99));
                      file.Write(3, PageImage(kPage, 0x99));
                      file.Append(PageImage(kPage, 0x99));
                      throw Error(kDuplicateKey, "no");
                  });
              }),
              kDuplicateKey);
    EXPECT_EQ(file.Read(2).Content()[0], 0x22);
    EXPECT_EQ(file.Read(3).Content()[0], 0x00);
    EXPECT_EQ(file.PageCount(), 5u);
    file.RollBackTransaction();
    EXPECT_EQ(file.Read(2).Content()[0], 0x00);
    EXPECT_EQ(ErrorNumberOf([&] { file.CommitTransaction(); }), kTransaction);
}

}  // namespace

}  // namespace jet::test
