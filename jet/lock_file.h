#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace jet
{

/// The file "NAME.ldb" beside an open "NAME.mdb": its existence says that the database is in use.
/// It holds one entry of 64 bytes, the computer's name and the user "Admin", 32 bytes each, and its
/// owner holds a lock on the byte of the first user for as long as it lives.
class LockFile
{
public:
    /// Users of a database lock a byte each from here on, far beyond the end of the lock file.
    static constexpr std::int64_t kFirstUserByte = 0x10000001;
    static constexpr std::int64_t kMostUsers = 255;

    /// The lock file's name for a database file.
    static std::filesystem::path NameFor(const std::filesystem::path& database_file);

    /// True when there is a lock file that can be opened for reading, whatever the case of its
    /// name. Only opens and closes it.
    static bool CanBeRead(const std::filesystem::path& lock_file);

    /// Makes the file, removed again by the destructor. nullptr when it is already there or cannot
    /// be made, as in a folder without write permission.
    static std::unique_ptr<LockFile> Create(const std::filesystem::path& lock_file);

    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

private:
    LockFile(std::filesystem::path path, int descriptor);

    std::filesystem::path path_;
    int descriptor_;
};

}  // namespace jet
