#include "jet/storage.h"

#include "jet/failure.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ctime>

namespace jet
{

namespace
{

/// Closes itself. The number is negative when the file could not be opened.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.number_) { other.number_ = -1; }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    int Number() const { return number_; }

private:
    int number_;
};

class SystemFile final : public StoredFile
{
public:
    explicit SystemFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    std::uint64_t Length() override
    {
        struct stat status {
        };
        if (::fstat(descriptor_.Number(), &status) != 0) {
            FailRead(errno);
        }
        return static_cast<std::uint64_t>(status.st_size);
    }

    std::size_t Read(std::uint64_t at, std::span<std::uint8_t> to) override
    {
        std::size_t done = 0;
        while (done < to.size()) {
            const ssize_t got = ::pread(descriptor_.Number(), to.data() + done, to.size() - done,
                                        static_cast<off_t>(at + done));
            if (got < 0 && errno != EINTR) {
                FailRead(errno);
            }
            if (got == 0) {
                break;
            }
            done += got > 0 ? static_cast<std::size_t>(got) : 0;
        }
        return done;
    }

    void Write(std::uint64_t at, Bytes bytes) override
    {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t put = ::pwrite(descriptor_.Number(), bytes.data() + done,
                                         bytes.size() - done, static_cast<off_t>(at + done));
            if (put < 0 && errno != EINTR) {
                FailWrite(errno);
            }
            done += put > 0 ? static_cast<std::size_t>(put) : 0;
        }
    }

    void Truncate(std::uint64_t length) override
    {
        if (::ftruncate(descriptor_.Number(), static_cast<off_t>(length)) != 0) {
            FailWrite(errno);
        }
    }

    void Sync() override
    {
        if (::fsync(descriptor_.Number()) != 0) {
            FailWrite(errno);
        }
    }

    bool TryLock(Lock lock) override
    {
        struct flock range = RangeOf(lock, F_WRLCK);
        if (::fcntl(descriptor_.Number(), F_OFD_SETLK, &range) == 0) {
            return true;
        }
        if (errno != EAGAIN && errno != EACCES) {
            FailLock(errno);
        }
        return false;
    }

    void WaitLock(Lock lock) override { Wait(RangeOf(lock, F_WRLCK)); }

    void Unlock(Lock lock) override
    {
        struct flock range = RangeOf(lock, F_UNLCK);
        ::fcntl(descriptor_.Number(), F_OFD_SETLK, &range);
    }

    void WaitUntilFree(Lock lock) override
    {
        Wait(RangeOf(lock, F_RDLCK));
        Unlock(lock);
    }

private:
    // Beyond the end of the longest file, where no other program looks for locks.
    static struct flock RangeOf(Lock lock, int type)
    {
        constexpr off_t kFirstByte = 0x7FFFFF00;
        struct flock range {
        };
        range.l_type = static_cast<short>(type);
        range.l_whence = SEEK_SET;
        range.l_start = kFirstByte + static_cast<off_t>(lock);
        range.l_len = 1;
        return range;
    }

    void Wait(struct flock range)
    {
        while (::fcntl(descriptor_.Number(), F_OFD_SETLKW, &range) != 0) {
            if (errno != EINTR) {
                FailLock(errno);
            }
        }
    }

    Descriptor descriptor_;
};

class RealStorage final : public Storage
{
public:
    std::unique_ptr<StoredFile> Open(const std::filesystem::path& path, OpenMode access) override
    {
        const int mode = access == OpenMode::ReadOnly ? O_RDONLY : O_RDWR;
        // Opening a named pipe must not wait for its other end.
        Descriptor descriptor(::open(path.c_str(), mode | O_CLOEXEC | O_NONBLOCK));
        if (descriptor.Number() < 0) {
            FailOpen(path, errno);
        }
        struct stat status {
        };
        if (::fstat(descriptor.Number(), &status) != 0) {
            FailRead(errno);
        }
        if (!S_ISREG(status.st_mode)) {
            FailUnrecognised("non è un file");
        }
        return std::make_unique<SystemFile>(std::move(descriptor));
    }

    std::unique_ptr<StoredFile> Create(const std::filesystem::path& path) override
    {
        constexpr mode_t kMode = 0666;
        Descriptor descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kMode));
        if (descriptor.Number() < 0) {
            FailCreate(path, errno);
        }
        return std::make_unique<SystemFile>(std::move(descriptor));
    }

    bool Exists(const std::filesystem::path& path) override
    {
        struct stat status {
        };
        return ::stat(path.c_str(), &status) == 0;
    }

    void Remove(const std::filesystem::path& path) override
    {
        if (::unlink(path.c_str()) != 0 && errno != ENOENT) {
            FailCreate(path, errno);
        }
    }

    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        constexpr unsigned kNoReplace = 1;
        if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), kNoReplace) == 0) {
            return;
        }
        // A network drive may not know how to keep the other file.
        if (errno != EINVAL && errno != ENOSYS) {
            FailCreate(to, errno);
        }
        if (Exists(to)) {
            FailCreate(to, EEXIST);
        }
        if (::rename(from.c_str(), to.c_str()) != 0) {
            FailCreate(to, errno);
        }
    }

    void SyncFolderOf(const std::filesystem::path& path) override
    {
        const auto parent = path.parent_path();
        const Descriptor folder(
            ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // EINVAL: a file system that cannot sync folders keeps their names by itself.
        if (folder.Number() < 0 || (::fsync(folder.Number()) != 0 && errno != EINVAL)) {
            FailWrite(errno);
        }
    }

    double LocalTime() override
    {
        constexpr double kSecondsPerDay = 86400;
        constexpr double kUnixEpoch = 25569;  // 1970-01-01 in days since 1899-12-30
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        ::localtime_r(&now, &local);
        return kUnixEpoch + static_cast<double>(::timegm(&local)) / kSecondsPerDay;
    }
};

}  // namespace

Storage& SystemStorage()
{
    static RealStorage storage;
    return storage;
}

}  // namespace jet
