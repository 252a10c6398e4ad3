#include "jet/failure.h"
#include "tests/jet/power_cut_storage.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace jet::test
{

namespace
{

constexpr const char* kName = "nimbo.mdb";

/// A disk whose locks can fail, as those of a network drive do.
class LockStorage final : public Storage
{
public:
    explicit LockStorage(Storage& disk) : disk_(disk) {}

    bool locks_fail = false;

    std::unique_ptr<StoredFile> Open(const std::filesystem::path& path, OpenMode mode) override
    {
        return std::make_unique<File>(disk_.Open(path, mode), *this);
    }
    std::unique_ptr<StoredFile> Create(const std::filesystem::path& path) override
    {
        return std::make_unique<File>(disk_.Create(path), *this);
    }
    bool Exists(const std::filesystem::path& path) override { return disk_.Exists(path); }
    void Remove(const std::filesystem::path& path) override { disk_.Remove(path); }
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        disk_.Rename(from, to);
    }
    void SyncFolderOf(const std::filesystem::path& path) override { disk_.SyncFolderOf(path); }
    double LocalTime() override { return disk_.LocalTime(); }

private:
    class File final : public StoredFile
    {
    public:
        File(std::unique_ptr<StoredFile> file, const LockStorage& storage)
            : file_(std::move(file)), storage_(storage)
        {
        }
        std::uint64_t Length() override { return file_->Length(); }
        std::size_t Read(std::uint64_t at, std::span<std::uint8_t> to) override
        {
            return file_->Read(at, to);
        }
        void Write(std::uint64_t at, Bytes bytes) override { file_->Write(at, bytes); }
        void Truncate(std::uint64_t length) override { file_->Truncate(length); }
        void Sync() override { file_->Sync(); }
        bool TryLock(Lock lock) override
        {
            Ask();
            return file_->TryLock(lock);
        }
        void WaitLock(Lock lock) override
        {
            Ask();
            file_->WaitLock(lock);
        }
        void Unlock(Lock lock) override { file_->Unlock(lock); }
        void WaitUntilFree(Lock lock) override
        {
            Ask();
            file_->WaitUntilFree(lock);
        }

    private:
        void Ask() const
        {
            if (storage_.locks_fail) FailLock(ENOLCK);
        }

        std::unique_ptr<StoredFile> file_;
        const LockStorage& storage_;
    };

    Storage& disk_;
};

class LockFailure : public testing::Test
{
protected:
    LockFailure() { disk.Put(kName, ReadFile(Sample("nimbo-full-2000.mdb"))); }

    PowerCutStorage disk;
    LockStorage storage{disk};
};

TEST_F(LockFailure, KeepsADatabaseClosedAndLeavesNothingBeside)
{
    storage.locks_fail = true;
    for (const OpenMode mode : {OpenMode::ReadOnly, OpenMode::ReadWrite})
        EXPECT_EQ(ErrorNumberOf([&] { Database::Open(kName, mode, storage); }), kCannotLock);
    EXPECT_FALSE(disk.Exists("nimbo.mdb-journal"));
    storage.locks_fail = false;
    EXPECT_NO_THROW(Database::Open(kName, OpenMode::ReadWrite, storage));
}

TEST_F(LockFailure, TakesBackTheChangeThatItMeets)
{
    const FileBytes before = disk.Content(kName);
    const auto database = Database::Open(kName, OpenMode::ReadWrite, storage);
    const auto rows = database->OpenTable(u"Output");
    const auto store = [&](std::int32_t layout) {
        rows->Edit();
        rows->SetField(u"Tracciato", layout);
        rows->Update();
    };
    const Value layout_before = rows->Field(u"Tracciato");
    storage.locks_fail = true;
    EXPECT_EQ(ErrorNumberOf([&] { store(7); }), kCannotLock);
    rows->CancelUpdate();
    EXPECT_EQ(rows->Field(u"Tracciato"), layout_before);
    EXPECT_TRUE(disk.Content(kName) == before);
    storage.locks_fail = false;
    // Another row's change must not bring along what was refused.
    const auto bells = database->OpenTable(u"Suonerie");
    bells->Edit();
    bells->SetField(u"Ora", 3);
    bells->Update();
    EXPECT_EQ(database->OpenTable(u"Output")->Field(u"Tracciato"), layout_before);
    store(8);
    EXPECT_EQ(database->OpenTable(u"Output")->Field(u"Tracciato"), Value(8));
}

}  // namespace

}  // namespace jet::test
