#pragma once

#include "jet/bytes.h"
#include "jet/open_mode.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace jet
{

/// An open file. Every member throws jet::Error when the system refuses: kDiskError, or kDiskFull
/// when there is no room.
class StoredFile
{
public:
    virtual ~StoredFile() = default;

    virtual std::uint64_t Length() = 0;
    /// Fewer bytes than asked for only at the end of the file.
    virtual std::size_t Read(std::uint64_t at, std::span<std::uint8_t> to) = 0;
    /// All bytes; the file grows when they reach beyond its end.
    virtual void Write(std::uint64_t at, Bytes bytes) = 0;
    virtual void Truncate(std::uint64_t length) = 0;
    /// Returns when what was written and the length are safe from a power cut.
    virtual void Sync() = 0;

    /// The locks that users of a database keep each other from; gone when the file is closed.
    /// kCannotLock where the file system keeps none.
    enum class Lock {
        Writer,  ///< held by the one who may change the file, as long as it is open
        Change,  ///< held while pages are written; a reader waits for its end
    };
    /// False when somebody else has it. The file must be open for writing.
    [[nodiscard]] virtual bool TryLock(Lock lock) = 0;
    virtual void WaitLock(Lock lock) = 0;
    virtual void Unlock(Lock lock) = 0;
    /// Returns when nobody holds the lock. For files opened in whatever way.
    virtual void WaitUntilFree(Lock lock) = 0;
};

/// The system as the engine sees it: files by name, and the time. Nothing else in the engine
/// touches the disk, so a test can stand in for it and fail wherever it likes.
class Storage
{
public:
    virtual ~Storage() = default;

    /// Errors: kFileNotFound, kAccessDenied, kUnrecognisedFormat when it is no file, kDiskError.
    virtual std::unique_ptr<StoredFile> Open(const std::filesystem::path& path,
                                             OpenMode access) = 0;
    /// A new empty file. Errors: kFileExists, kAccessDenied, kDiskError.
    virtual std::unique_ptr<StoredFile> Create(const std::filesystem::path& path) = 0;
    virtual bool Exists(const std::filesystem::path& path) = 0;
    /// Nothing happens when there is no such file. Errors: kAccessDenied, kDiskError.
    virtual void Remove(const std::filesystem::path& path) = 0;
    /// Errors: kFileExists when there is a file of the new name, kAccessDenied, kDiskError.
    virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    /// Returns when the names in the file's folder are safe from a power cut.
    virtual void SyncFolderOf(const std::filesystem::path& path) = 0;

    /// Local time, days since 1899-12-30, to the second.
    virtual double LocalTime() = 0;
};

/// The real one.
Storage& SystemStorage();

}  // namespace jet
