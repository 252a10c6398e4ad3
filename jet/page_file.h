#pragma once

#include "jet/format.h"
#include "jet/journal.h"

#include <array>
#include <map>
#include <memory>
#include <unordered_map>

namespace jet
{

/// A page as it was when it was read. Copies share the bytes and keep them alive.
class Page
{
public:
    Page(std::uint32_t number, std::shared_ptr<const PageImage> content)
        : number_(number), content_(std::move(content))
    {
    }

    std::uint32_t Number() const { return number_; }
    Bytes Content() const { return *content_; }
    const std::shared_ptr<const PageImage>& Shared() const { return content_; }

private:
    std::uint32_t number_;
    std::shared_ptr<const PageImage> content_;
};

/// The file as a sequence of pages, read through a cache of at most kCachedPages of them.
///
/// Pages written are kept in memory until the change is committed; the journal then takes the
/// pages' old bytes and the file the new ones (see journal.h). Whoever holds a Page goes on seeing
/// what it was.
class PageFile
{
public:
    /// Rolls back what a crash has left half done. Errors: those of Database::Open.
    explicit PageFile(const std::filesystem::path& path, OpenMode access = OpenMode::ReadOnly,
                      Storage& storage = SystemStorage());
    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    OpenMode Mode() const { return access_; }
    const jet::Format& Format() const { return *format_; }
    std::uint32_t PageCount() const { return page_count_; }
    Storage& System() const { return storage_; }

    /// Any page but the header. Errors: kDamagedFile when there is no such page, kDiskError.
    Page Read(std::uint32_t number);
    /// Page 0. Errors: kDiskError.
    PageImage ReadHeader();

    // Inside Change only.

    /// Errors: kDamagedFile when there is no such page.
    void Write(std::uint32_t number, PageImage content);
    /// Adds a page behind the last one and gives its number. Errors: kDiskFull when the version's
    /// file size is reached.
    std::uint32_t Append(PageImage content);

    /// Runs `action`, whose writes are all done or, when it throws, none. Outside a transaction
    /// they are on the disk on return. Errors: kReadOnly, kDiskError, kDiskFull, those of `action`.
    template <typename Action>
    void Change(const Action& action)
    {
        BeginChange();
        try {
            action();
        } catch (...) {
            UndoChange();
            throw;
        }
        EndChange();
    }

    // A transaction makes several changes one. Errors: kTransaction.

    void BeginTransaction();
    void CommitTransaction();
    void RollBackTransaction();

    /// Differs when a page may have changed since it was asked for last.
    std::uint64_t Changes() const { return changes_; }
    /// Differs when a table definition may have changed.
    std::uint64_t SchemaChanges() const { return schema_changes_; }
    void NoteSchemaChange() { ++schema_changes_; }

private:
    using SharedImage = std::shared_ptr<const PageImage>;

    static constexpr std::size_t kCachedPages = 256;

    void Recognise();
    void OpenForReading(const std::filesystem::path& path);
    void OpenForWriting(const std::filesystem::path& path);
    void CountPages();
    SharedImage ReadCommitted(std::uint32_t number);
    void BeginChange();
    void UndoChange();
    void EndChange();
    void Commit();
    void WriteDirtyPages();
    UndoImages ImagesBeforeChange();
    void ForgetChanges();
    void Recover();

    Storage& storage_;
    OpenMode access_;
    std::filesystem::path journal_path_;
    std::unique_ptr<StoredFile> file_;
    std::unique_ptr<StoredFile> journal_;
    const jet::Format* format_ = nullptr;
    std::uint32_t page_count_ = 0;
    std::uint32_t committed_pages_ = 0;
    // Page n is kept in slot n modulo the number of slots, if at all.
    std::array<std::unique_ptr<Page>, kCachedPages> cache_;
    // Written and not committed; of a file that can only be read, the pages that a crash left half
    // written, as they were before.
    std::map<std::uint32_t, SharedImage> dirty_;
    // What the running change has replaced in dirty_; nothing = the page was not there.
    std::unordered_map<std::uint32_t, SharedImage> undo_;
    std::uint32_t pages_before_change_ = 0;
    bool in_change_ = false;
    bool in_transaction_ = false;
    bool broken_ = false;  // only reopening tells what is in the file
    std::uint64_t changes_ = 0;
    std::uint64_t schema_changes_ = 0;
};

}  // namespace jet
