#include "tests/jet/power_cut_storage.h"

#include <algorithm>
#include <utility>

namespace jet::test
{

class PowerCutStorage::File final : public StoredFile
{
public:
    File(PowerCutStorage& storage, std::shared_ptr<Disk> disk)
        : storage_(storage), disk_(std::move(disk))
    {
    }
    ~File() override
    {
        if (holds_lock_) {
            disk_->writer_locked = false;
        }
    }

    std::uint64_t Length() override { return disk_->now.size(); }

    std::size_t Read(std::uint64_t at, std::span<std::uint8_t> to) override
    {
        const std::size_t end = std::min<std::size_t>(disk_->now.size(), at + to.size());
        const std::size_t size = at < end ? end - at : 0;
        std::copy_n(disk_->now.begin() + static_cast<std::ptrdiff_t>(at), size, to.begin());
        return size;
    }

    void Write(std::uint64_t at, Bytes bytes) override
    {
        Do({at, {bytes.begin(), bytes.end()}, false});
    }

    void Truncate(std::uint64_t length) override { Do({length, {}, true}); }

    void Sync() override
    {
        storage_.Step();
        disk_->safe = disk_->now;
        disk_->unsynced.clear();
    }

    bool TryLock(Lock lock) override
    {
        if (lock == Lock::Writer && !std::exchange(disk_->writer_locked, true)) {
            holds_lock_ = true;
        }
        return lock != Lock::Writer || holds_lock_;
    }
    void WaitLock(Lock) override {}
    void Unlock(Lock) override {}
    void WaitUntilFree(Lock) override {}

private:
    // A step that fails has begun: the power cut may catch it done, a failed write is half done.
    void Do(Piece piece)
    {
        const bool had_power = !storage_.off_;
        try {
            storage_.Step();
        } catch (const PowerCut&) {
            if (had_power) {
                disk_->unsynced.push_back(std::move(piece));
            }
            throw;
        } catch (const Error&) {
            piece.bytes.resize(piece.bytes.size() / 2);
            if (!piece.truncate) {
                Keep(std::move(piece));
            }
            throw;
        }
        Keep(std::move(piece));
    }

    void Keep(Piece piece)
    {
        Apply(piece, disk_->now);
        disk_->unsynced.push_back(std::move(piece));
    }

    PowerCutStorage& storage_;
    std::shared_ptr<Disk> disk_;
    bool holds_lock_ = false;
};

void PowerCutStorage::Put(const std::filesystem::path& path, const FileBytes& bytes)
{
    names_[path] = std::make_shared<Disk>(Disk{bytes, bytes, {}, false});
    safe_names_ = names_;
}

FileBytes PowerCutStorage::Content(const std::filesystem::path& path) const
{
    return names_.at(path)->now;
}

void PowerCutStorage::TroubleAt(int step, Trouble trouble)
{
    steps_ = 0;
    trouble_at_ = step;
    trouble_ = trouble;
}

void PowerCutStorage::Step()
{
    ++steps_;
    if (off_) {
        throw PowerCut{};
    }
    if (trouble_at_ == 0 || steps_ < trouble_at_) {
        return;
    }
    if (trouble_ == Trouble::PowerCut) {
        off_ = true;
        throw PowerCut{};
    }
    if (steps_ == trouble_at_ || trouble_ == Trouble::ErrorForever) {
        throw Error(kDiskError, "the disk fails");
    }
}

void PowerCutStorage::Apply(const Piece& piece, FileBytes& to)
{
    if (piece.truncate) {
        to.resize(piece.at);
        return;
    }
    to.resize(std::max<std::size_t>(to.size(), piece.at + piece.bytes.size()));
    std::ranges::copy(piece.bytes, to.begin() + static_cast<std::ptrdiff_t>(piece.at));
}

// Sector by sector: done, not done, or noise.
void PowerCutStorage::ApplyTorn(const Piece& piece, FileBytes& to, std::mt19937& random)
{
    constexpr std::size_t kSector = 512;
    for (std::size_t done = 0; done < piece.bytes.size(); done += kSector) {
        const auto begin = piece.bytes.begin() + static_cast<std::ptrdiff_t>(done);
        Piece sector{piece.at + done,
                     {begin, begin + static_cast<std::ptrdiff_t>(
                                         std::min(kSector, piece.bytes.size() - done))},
                     false};
        const auto fate = random() % 3;
        if (fate == 0) {
            std::ranges::generate(sector.bytes,
                                  [&] { return static_cast<std::uint8_t>(random()); });
        }
        if (fate != 1) {
            Apply(sector, to);
        }
    }
}

void PowerCutStorage::Restart(std::mt19937& random)
{
    if (random() % 2 == 0) {
        names_ = safe_names_;
    }
    for (auto& [path, disk] : names_) {
        FileBytes found = disk->safe;
        for (const Piece& piece : disk->unsynced) {
            const auto fate = random() % 3;
            if (fate == 0) {
                Apply(piece, found);
            } else if (fate == 1) {
                ApplyTorn(piece, found, random);
            }
        }
        *disk = Disk{found, found, {}, false};
    }
    safe_names_ = names_;
    off_ = false;
    trouble_at_ = 0;
}

std::unique_ptr<StoredFile> PowerCutStorage::Open(const std::filesystem::path& path, OpenMode mode)
{
    const auto found = names_.find(path);
    if (found == names_.end()) {
        throw Error(kFileNotFound, "no such file");
    }
    if (read_only_ && mode == OpenMode::ReadWrite) {
        throw Error(kAccessDenied, "read-only");
    }
    return std::make_unique<File>(*this, found->second);
}

std::unique_ptr<StoredFile> PowerCutStorage::Create(const std::filesystem::path& path)
{
    Step();
    if (read_only_) {
        throw Error(kAccessDenied, "read-only");
    }
    const auto [entry, is_new] = names_.emplace(path, std::make_shared<Disk>());
    if (!is_new) {
        throw Error(kFileExists, "the file is there");
    }
    return std::make_unique<File>(*this, entry->second);
}

bool PowerCutStorage::Exists(const std::filesystem::path& path)
{
    return names_.contains(path);
}

void PowerCutStorage::Remove(const std::filesystem::path& path)
{
    Step();
    names_.erase(path);
}

void PowerCutStorage::Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    Step();
    if (names_.contains(to)) {
        throw Error(kFileExists, "the file is there");
    }
    names_[to] = names_.at(from);
    names_.erase(from);
}

void PowerCutStorage::SyncFolderOf(const std::filesystem::path&)
{
    Step();
    safe_names_ = names_;
}

}  // namespace jet::test
