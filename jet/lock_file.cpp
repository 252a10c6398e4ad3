#include "jet/lock_file.h"

#include "jet/file_name.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string_view>

namespace jet
{

namespace
{

constexpr std::size_t kNameLength = 32;

void WriteEntry(int descriptor)
{
    constexpr std::string_view kUser = "Admin";
    std::array<char, 2 * kNameLength> entry{};
    gethostname(entry.data(), kNameLength - 1);
    kUser.copy(entry.data() + kNameLength, kUser.size());
    [[maybe_unused]] const ssize_t written = write(descriptor, entry.data(), entry.size());
}

void LockFirstUser(int descriptor)
{
    struct flock lock {
    };
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = LockFile::kFirstUserByte;
    lock.l_len = 1;
    fcntl(descriptor, F_SETLK, &lock);
}

}  // namespace

std::filesystem::path LockFile::NameFor(const std::filesystem::path& database_file)
{
    return std::filesystem::path(database_file).replace_extension(".ldb");
}

bool LockFile::CanBeRead(const std::filesystem::path& lock_file)
{
    const int descriptor = open(FindFile(lock_file).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return false;
    struct stat status {
    };
    const bool is_file = fstat(descriptor, &status) == 0 && !S_ISDIR(status.st_mode);
    close(descriptor);
    return is_file;
}

std::unique_ptr<LockFile> LockFile::Create(const std::filesystem::path& lock_file)
{
    constexpr mode_t kReadableByAll = 0666;
    const int descriptor =
        open(lock_file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kReadableByAll);
    if (descriptor < 0) return nullptr;
    WriteEntry(descriptor);
    LockFirstUser(descriptor);
    return std::unique_ptr<LockFile>(new LockFile(lock_file, descriptor));
}

LockFile::LockFile(std::filesystem::path path, int descriptor)
    : path_(std::move(path)), descriptor_(descriptor)
{
}

LockFile::~LockFile()
{
    unlink(path_.c_str());
    close(descriptor_);
}

}  // namespace jet
