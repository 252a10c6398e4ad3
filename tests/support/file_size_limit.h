#pragma once

#include <sys/resource.h>

#include <csignal>

namespace orlo::testing
{

/// From now on no file grows beyond so many bytes: a disk that is full from there on, also to root.
inline void LimitFileSize(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// The same for as long as it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) { LimitFileSize(bytes); }
    ~FileSizeLimit() { LimitFileSize(RLIM_INFINITY); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
};

}  // namespace orlo::testing
