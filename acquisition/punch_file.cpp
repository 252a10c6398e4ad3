#include "acquisition/punch_file.h"

#include "registry/system_reason.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace orlo
{

namespace
{

constexpr mode_t kReadableByAll = 0666;

bool IsOutOfRoom(int system_error)
{
    return system_error == ENOSPC || system_error == EDQUOT || system_error == EFBIG ||
           system_error == EIO;
}

/// A limit on the length of files is not asked when space behind the end is secured, only when it
/// is written to.
bool IsOverTheLimit(off_t length)
{
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && static_cast<rlim_t>(length) > limit.rlim_cur;
}

/// A new file is only safe once its name is: the folder is synced too. A folder that cannot be
/// opened for that belongs to a file system that keeps names by itself.
void SyncFolderOf(const QByteArray& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(QFile::decodeName(path)).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

}  // namespace

PunchFile::~PunchFile()
{
    if (descriptor_ < 0) return;
    // Gives back the room that was secured and not used.
    struct stat status {
    };
    if (fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)) [[maybe_unused]]
        const int result = ftruncate(descriptor_, status.st_size);
    close(descriptor_);
}

bool PunchFile::Open(const QString& name)
{
    path_ = QFile::encodeName(name);
    // O_NONBLOCK: a pipe that nobody reads is an error, not a wait without end.
    constexpr int kAppending = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    descriptor_ = open(path_.constData(), kAppending, kReadableByAll);
    if (descriptor_ < 0) return Fail(errno);
    // Another program that appends meanwhile would lose its lines when ours are cut back.
    if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return Fail(errno);
    SyncFolderOf(path_);
    return true;
}

bool PunchFile::SecureRoom(std::size_t bytes)
{
    const off_t end = lseek(descriptor_, 0, SEEK_END);
    if (end < 0) return true;
    if (IsOverTheLimit(end + static_cast<off_t>(bytes))) return Fail(EFBIG);
    if (fallocate(descriptor_, FALLOC_FL_KEEP_SIZE, end, static_cast<off_t>(bytes)) == 0)
        return true;
    return IsOutOfRoom(errno) ? Fail(errno) : true;
}

bool PunchFile::Append(std::string_view lines)
{
    const off_t end = lseek(descriptor_, 0, SEEK_END);
    length_before_answer_ = end < 0 ? 0 : end;
    while (!lines.empty()) {
        const ssize_t written = write(descriptor_, lines.data(), lines.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return CutBack(written < 0 ? errno : ENOSPC);
        lines.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool PunchFile::Sync()
{
    if (fsync(descriptor_) != 0) return CutBack(errno);
    // A file that was deleted or replaced takes writes without complaint, and they are lost.
    return StillUnderItsName() || CutBack(ENOENT);
}

bool PunchFile::Fail(int system_error)
{
    error_ = SystemReason(system_error);
    return false;
}

bool PunchFile::CutBack(int system_error)
{
    if (ftruncate(descriptor_, length_before_answer_) == 0) fsync(descriptor_);
    return Fail(system_error);
}

bool PunchFile::StillUnderItsName() const
{
    struct stat named {
    };
    struct stat opened {
    };
    return stat(path_.constData(), &named) == 0 && fstat(descriptor_, &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

}  // namespace orlo
