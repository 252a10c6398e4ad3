#pragma once

#include <sys/resource.h>

#include <csignal>

namespace orlo::testing
{

/// While it lives no file grows beyond so many bytes: a disk that is full from there on, also to
/// root.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        Set(bytes);
    }
    ~FileSizeLimit() { Set(RLIM_INFINITY); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    static void Set(rlim_t bytes)
    {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
};

}  // namespace orlo::testing
