#include "jet/page_file.h"

#include "jet/failure.h"
#include "jet/header.h"

#include <optional>
#include <string>
#include <utility>

// The states of a file open for writing, and what leads from one to the next:
//
//  clean ------ BeginChange ------> changing       nothing but memory is touched
//  changing --- UndoChange -------> clean          (or the transaction as it was)
//  changing --- EndChange --------> clean          by way of Commit; in a transaction: no disk yet
//  Commit:      WriteJournal, dirty pages, Sync, InvalidateJournal; invariants in journal.h
//  Commit fails: Recover ---------> clean          the file is what it was
//  Recover fails, or the journal could not be made invalid: broken, every call fails until reopened

namespace jet
{

namespace
{

// Row pointers have 24 bits for the page.
constexpr std::uint64_t kMostPages = 1u << 24;

// 1 GiB in Jet 3, 2 GiB in Jet 4.
constexpr std::uint32_t kMostPagesWritten = 1u << 19;

std::unique_ptr<StoredFile> OpenIfThere(Storage& storage, const std::filesystem::path& path,
                                        OpenMode access)
{
    try {
        return storage.Open(path, access);
    } catch (const Error& error) {
        if (error.Number() != kFileNotFound) {
            throw;
        }
        return nullptr;
    }
}

/// Keeps readers out while pages are written.
class ChangeLock
{
public:
    explicit ChangeLock(StoredFile& file) : file_(file)
    {
        file_.WaitLock(StoredFile::Lock::Change);
    }
    ~ChangeLock() { file_.Unlock(StoredFile::Lock::Change); }
    ChangeLock(const ChangeLock&) = delete;
    ChangeLock& operator=(const ChangeLock&) = delete;

private:
    StoredFile& file_;
};

void TakeBackByJournal(StoredFile& file, StoredFile& journal, std::size_t page_bytes)
{
    if (const auto images = ReadJournal(journal, page_bytes)) {
        TakeBack(file, *images, page_bytes);
        InvalidateJournal(journal);
    }
}

}  // namespace

PageFile::PageFile(const std::filesystem::path& path, OpenMode access, Storage& storage)
    : storage_(storage), access_(access), journal_path_(JournalNameFor(path))
{
    if (access == OpenMode::ReadOnly) {
        OpenForReading(path);
    } else {
        OpenForWriting(path);
    }
}

PageFile::~PageFile()
{
    if (journal_ == nullptr || broken_) {
        return;
    }
    try {
        journal_.reset();
        storage_.Remove(journal_path_);
    } catch (...) {
        // An invalid journal left behind does no harm.
    }
}

void PageFile::Recognise()
{
    std::array<std::uint8_t, kHeaderBytes> header{};
    format_ = &RecogniseHeader(Bytes(header).first(file_->Read(0, header)));
}

// When a crash has left a journal: take the change back, or, if the file cannot be written, see it
// as it was.
void PageFile::OpenForReading(const std::filesystem::path& path)
{
    file_ = storage_.Open(path, OpenMode::ReadOnly);
    Recognise();
    file_->WaitUntilFree(StoredFile::Lock::Change);
    const auto journal = OpenIfThere(storage_, journal_path_, OpenMode::ReadOnly);
    auto images = journal ? ReadJournal(*journal, format_->page_bytes) : std::nullopt;
    if (images) {
        try {
            const auto writable = storage_.Open(path, OpenMode::ReadWrite);
            if (!writable->TryLock(StoredFile::Lock::Writer)) {
                FailInUse(path);
            }
            const auto valid = storage_.Open(journal_path_, OpenMode::ReadWrite);
            TakeBackByJournal(*writable, *valid, format_->page_bytes);
            images.reset();
        } catch (const Error& error) {
            if (error.Number() != kAccessDenied) {
                throw;
            }
        }
    }
    if (images) {
        for (auto& [number, image] : images->pages) {
            dirty_[number] = std::make_shared<PageImage>(std::move(image));
        }
        page_count_ = images->page_count;
    } else {
        CountPages();
    }
}

void PageFile::OpenForWriting(const std::filesystem::path& path)
{
    file_ = storage_.Open(path, OpenMode::ReadWrite);
    Recognise();
    if (!file_->TryLock(StoredFile::Lock::Writer)) {
        FailInUse(path);
    }
    journal_ = OpenIfThere(storage_, journal_path_, OpenMode::ReadWrite);
    if (journal_ != nullptr) {
        const ChangeLock lock(*file_);
        TakeBackByJournal(*file_, *journal_, format_->page_bytes);
    }
    CountPages();
    committed_pages_ = page_count_;
    if (journal_ == nullptr) {
        journal_ = storage_.Create(journal_path_);
        storage_.SyncFolderOf(journal_path_);  // invariant 6
    }
}

void PageFile::CountPages()
{
    const std::uint64_t length = file_->Length();
    if (length % format_->page_bytes != 0 || length / format_->page_bytes > kMostPages) {
        FailDamaged("lunghezza del file " + std::to_string(length) + ", file forse troncato");
    }
    page_count_ = static_cast<std::uint32_t>(length / format_->page_bytes);
}

Page PageFile::Read(std::uint32_t number)
{
    if (broken_) {
        FailReopen();
    }
    if (number == 0 || number >= page_count_) {
        FailDamaged(number, "rinvio a una pagina che non c'è");
    }
    if (const auto dirty = dirty_.find(number); dirty != dirty_.end()) {
        return {number, dirty->second};
    }
    return {number, ReadCommitted(number)};
}

PageFile::SharedImage PageFile::ReadCommitted(std::uint32_t number)
{
    std::unique_ptr<Page>& slot = cache_[number % kCachedPages];
    if (!slot || slot->Number() != number) {
        auto content = std::make_shared<PageImage>(format_->page_bytes);
        if (file_->Read(std::uint64_t{number} * content->size(), *content) != content->size()) {
            FailDamaged(number, "il file finisce prima");
        }
        slot = std::make_unique<Page>(number, std::move(content));
    }
    return slot->Shared();
}

PageImage PageFile::ReadHeader()
{
    PageImage content(format_->page_bytes);
    if (file_->Read(0, content) != content.size()) {
        FailDamaged(0, "il file finisce prima");
    }
    return content;
}

void PageFile::Write(std::uint32_t number, PageImage content)
{
    assert(in_change_ && content.size() == format_->page_bytes);
    if (number == 0 || number >= page_count_) {
        FailDamaged(number, "rinvio a una pagina che non c'è");
    }
    SharedImage& slot = dirty_[number];
    undo_.try_emplace(number, slot);
    slot = std::make_shared<PageImage>(std::move(content));
}

std::uint32_t PageFile::Append(PageImage content)
{
    if (page_count_ >= kMostPagesWritten) {
        FailFileFull();
    }
    const std::uint32_t number = page_count_++;
    Write(number, std::move(content));
    return number;
}

void PageFile::BeginChange()
{
    assert(!in_change_);
    if (access_ == OpenMode::ReadOnly) {
        FailReadOnly();
    }
    if (broken_) {
        FailReopen();
    }
    undo_.clear();
    pages_before_change_ = page_count_;
    in_change_ = true;
}

void PageFile::UndoChange()
{
    for (auto& [number, before] : undo_) {
        if (before) {
            dirty_[number] = std::move(before);
        } else {
            dirty_.erase(number);
        }
    }
    page_count_ = pages_before_change_;
    in_change_ = false;
    ++changes_;
    ++schema_changes_;
}

void PageFile::EndChange()
{
    in_change_ = false;
    ++changes_;
    if (!in_transaction_) {
        Commit();
    }
}

void PageFile::BeginTransaction()
{
    if (access_ == OpenMode::ReadOnly) {
        FailReadOnly();
    }
    if (in_transaction_) {
        FailTransaction("è già in corso una transazione");
    }
    in_transaction_ = true;
}

void PageFile::CommitTransaction()
{
    if (!in_transaction_) {
        FailTransaction("nessuna transazione in corso");
    }
    in_transaction_ = false;
    Commit();
}

void PageFile::RollBackTransaction()
{
    if (!in_transaction_) {
        FailTransaction("nessuna transazione in corso");
    }
    in_transaction_ = false;
    ForgetChanges();
}

void PageFile::ForgetChanges()
{
    dirty_.clear();
    page_count_ = committed_pages_;
    ++changes_;
    ++schema_changes_;
}

UndoImages PageFile::ImagesBeforeChange()
{
    UndoImages images{committed_pages_, {}};
    for (const auto& [number, image] : dirty_) {
        if (number < committed_pages_) {
            images.pages.emplace(number, *ReadCommitted(number));
        }
    }
    return images;
}

void PageFile::Commit()
{
    if (dirty_.empty()) {
        return;
    }
    std::optional<ChangeLock> lock;  // also while the journal becomes invalid
    try {
        lock.emplace(*file_);
        WriteJournal(*journal_, ImagesBeforeChange(), format_->page_bytes);  // invariant 1
        WriteDirtyPages();                                                   // invariant 2
    } catch (...) {
        Recover();
        throw;
    }
    broken_ = true;  // whether the journal has become invalid is not known if this fails
    InvalidateJournal(*journal_);  // invariant 4
    broken_ = false;
    for (auto& [number, image] : dirty_) {
        cache_[number % kCachedPages] = std::make_unique<Page>(number, std::move(image));
    }
    dirty_.clear();
    committed_pages_ = page_count_;
}

void PageFile::WriteDirtyPages()
{
    for (const auto& [number, image] : dirty_) {
        file_->Write(std::uint64_t{number} * format_->page_bytes, *image);
    }
    file_->Sync();
}

// The error that has led here is the one to report, whatever happens.
void PageFile::Recover()
{
    ForgetChanges();
    try {
        broken_ = true;
        TakeBackByJournal(*file_, *journal_, format_->page_bytes);
        broken_ = false;
    } catch (...) {
    }
}

}  // namespace jet
