#include "registro/stale_lock.h"

#include "jet/file_name.h"
#include "registro/failure.h"
#include "registro/register_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace orlo::registro
{

namespace
{

class OpenFile
{
public:
    explicit OpenFile(const std::filesystem::path& path)
        : descriptor_(open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~OpenFile()
    {
        if (descriptor_ >= 0) close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }

    bool LockAllUsers() const
    {
        struct flock lock {
        };
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = jet::LockFile::kFirstUserByte;
        lock.l_len = jet::LockFile::kMostUsers;
        return fcntl(descriptor_, F_SETLK, &lock) == 0;
    }

    /// False when its owner removed it after it was opened here.
    bool StillHasAName() const
    {
        struct stat status {
        };
        return fstat(descriptor_, &status) == 0 && status.st_nlink > 0;
    }

private:
    int descriptor_;
};

[[noreturn]] void FailRemoval(const std::filesystem::path& file, int system_error)
{
    throw Failure(QStringLiteral("Il file \"%1\" non si può togliere (%2).")
                      .arg(TextOf(file),
                           QString::fromStdString(std::generic_category().message(system_error))));
}

}  // namespace

LockRemoval RemoveStaleLock(const std::filesystem::path& lock_file)
{
    const std::filesystem::path found = jet::FindFile(lock_file);
    const OpenFile file(found);
    if (!file.IsOpen()) {
        if (errno == ENOENT) return LockRemoval::NotThere;
        FailRemoval(found, errno);
    }
    if (!file.LockAllUsers()) {
        if (errno == EACCES || errno == EAGAIN) return LockRemoval::Held;
        FailRemoval(found, errno);
    }
    // The owner may have ended in the meantime, and the name belong to the next one.
    if (!file.StillHasAName()) return LockRemoval::NotThere;
    if (unlink(found.c_str()) != 0) FailRemoval(found, errno);
    return LockRemoval::Removed;
}

}  // namespace orlo::registro
