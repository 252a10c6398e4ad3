#include "tests/jet/memory_storage.h"

#include "jet/error.h"

#include <algorithm>
#include <utility>

namespace jet::test
{

class MemoryStorage::File final : public StoredFile
{
public:
    explicit File(std::shared_ptr<Content> content) : content_(std::move(content)) {}

    std::uint64_t Length() override { return content_->size(); }

    std::size_t Read(std::uint64_t at, std::span<std::uint8_t> to) override
    {
        const std::size_t begin = std::min<std::uint64_t>(content_->size(), at);
        const std::size_t size = std::min(content_->size() - begin, to.size());
        std::copy_n(content_->begin() + static_cast<std::ptrdiff_t>(begin), size, to.begin());
        return size;
    }

    void Write(std::uint64_t at, Bytes bytes) override
    {
        content_->resize(std::max<std::size_t>(content_->size(), at + bytes.size()));
        std::ranges::copy(bytes, content_->begin() + static_cast<std::ptrdiff_t>(at));
    }

    void Truncate(std::uint64_t length) override { content_->resize(length); }
    void Sync() override {}

    bool TryLock(Lock) override { return true; }
    void WaitLock(Lock) override {}
    void Unlock(Lock) override {}
    void WaitUntilFree(Lock) override {}

private:
    std::shared_ptr<Content> content_;
};

void MemoryStorage::Put(const std::filesystem::path& path, Content content)
{
    files_[path] = std::make_shared<Content>(std::move(content));
}

std::unique_ptr<StoredFile> MemoryStorage::Open(const std::filesystem::path& path, OpenMode)
{
    const auto found = files_.find(path);
    if (found == files_.end()) {
        throw Error(kFileNotFound, "no such file");
    }
    return std::make_unique<File>(found->second);
}

std::unique_ptr<StoredFile> MemoryStorage::Create(const std::filesystem::path& path)
{
    const auto [entry, is_new] = files_.emplace(path, std::make_shared<Content>());
    if (!is_new) {
        throw Error(kFileExists, "the file is there");
    }
    return std::make_unique<File>(entry->second);
}

void MemoryStorage::Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (!files_.emplace(to, files_.at(from)).second) {
        throw Error(kFileExists, "the file is there");
    }
    files_.erase(from);
}

}  // namespace jet::test
