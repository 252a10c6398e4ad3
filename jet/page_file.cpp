#include "jet/page_file.h"

#include "jet/failure.h"
#include "jet/header.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

namespace jet
{

namespace
{

// Row pointers have 24 bits for the page.
constexpr std::uint64_t kMostPages = 1u << 24;

}  // namespace

PageFile::PageFile(const std::filesystem::path& path)
    // Opening a named pipe must not wait for its other end.
    : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    if (descriptor_ < 0) {
        FailOpen(path, errno);
    }
    try {
        Recognise();
    } catch (...) {
        ::close(descriptor_);
        throw;
    }
}

PageFile::~PageFile()
{
    ::close(descriptor_);
}

void PageFile::Recognise()
{
    struct stat status {
    };
    if (::fstat(descriptor_, &status) != 0) {
        FailRead(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        FailUnrecognised("non è un file");
    }
    std::array<std::uint8_t, kHeaderBytes> header{};
    format_ = &RecogniseHeader(Bytes(header).first(ReadAt(header.data(), header.size(), 0)));
    const auto length = static_cast<std::uint64_t>(status.st_size);
    if (length % format_->page_bytes != 0 || length / format_->page_bytes > kMostPages) {
        FailDamaged("lunghezza del file " + std::to_string(length) + ", file forse troncato");
    }
    page_count_ = static_cast<std::uint32_t>(length / format_->page_bytes);
}

Page PageFile::Read(std::uint32_t number)
{
    if (number == 0 || number >= page_count_) {
        FailDamaged(number, "rinvio a una pagina che non c'è");
    }
    std::unique_ptr<Page>& slot = cache_[number % kCachedPages];
    if (!slot || slot->Number() != number) {
        auto content = std::make_shared<std::vector<std::uint8_t>>(format_->page_bytes);
        const std::uint64_t at = std::uint64_t{number} * content->size();
        if (ReadAt(content->data(), content->size(), at) != content->size()) {
            FailDamaged(number, "il file finisce prima");
        }
        slot = std::make_unique<Page>(number, std::move(content));
    }
    return *slot;
}

std::size_t PageFile::ReadAt(std::uint8_t* to, std::size_t size, std::uint64_t at) const
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got =
            ::pread(descriptor_, to + done, size - done, static_cast<off_t>(at + done));
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

}  // namespace jet
