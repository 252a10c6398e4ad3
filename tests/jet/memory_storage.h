#pragma once

#include "jet/storage.h"

#include <map>
#include <vector>

namespace jet::test
{

/// Files in memory that nothing ever goes wrong with, quick enough for tens of thousands of them.
/// One user at a time: locks are always free.
class MemoryStorage final : public Storage
{
public:
    using Content = std::vector<std::uint8_t>;

    void Put(const std::filesystem::path& path, Content content);
    const Content& At(const std::filesystem::path& path) const { return *files_.at(path); }

    std::unique_ptr<StoredFile> Open(const std::filesystem::path& path, OpenMode access) override;
    std::unique_ptr<StoredFile> Create(const std::filesystem::path& path) override;
    bool Exists(const std::filesystem::path& path) override { return files_.contains(path); }
    void Remove(const std::filesystem::path& path) override { files_.erase(path); }
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void SyncFolderOf(const std::filesystem::path&) override {}
    double LocalTime() override { return 45000.5; }

private:
    class File;

    std::map<std::filesystem::path, std::shared_ptr<Content>> files_;
};

}  // namespace jet::test
