#pragma once

#include "jet/storage.h"
#include "tests/jet/sample_files.h"

#include <map>
#include <random>
#include <set>

namespace jet::test
{

/// Thrown out of the engine when the power goes; no jet::Error, so nothing reports it.
struct PowerCut {
};

/// Files in memory. Every write, sync and change of a name is a step, and at a chosen step the disk
/// fails or the power goes. What was not synced then survives piece by piece: properly, not at all
/// or as noise.
class PowerCutStorage final : public Storage
{
public:
    enum class Trouble {
        PowerCut,
        ErrorOnce,     ///< this step fails, half of a write done
        ErrorForever,  ///< and all behind it
    };

    void Put(const std::filesystem::path& path, const FileBytes& bytes);
    FileBytes Content(const std::filesystem::path& path) const;

    /// Counts from the next step on, beginning with 1; 0 = never.
    void TroubleAt(int step, Trouble trouble);
    int Steps() const { return steps_; }

    /// What a restart finds on the disk. All files opened before must be closed.
    void Restart(std::mt19937& random);

    std::unique_ptr<StoredFile> Open(const std::filesystem::path& path, OpenMode mode) override;
    std::unique_ptr<StoredFile> Create(const std::filesystem::path& path) override;
    bool Exists(const std::filesystem::path& path) override;
    void Remove(const std::filesystem::path& path) override;
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void SyncFolderOf(const std::filesystem::path& path) override;
    double LocalTime() override { return 45000.5; }

    void SetReadOnly(bool read_only) { read_only_ = read_only; }

private:
    struct Piece {
        std::uint64_t at = 0;
        FileBytes bytes;
        bool truncate = false;
    };
    struct Disk {
        FileBytes now;
        FileBytes safe;
        std::vector<Piece> unsynced;
        bool writer_locked = false;
    };
    using Names = std::map<std::filesystem::path, std::shared_ptr<Disk>>;
    class File;

    void Step();
    static void Apply(const Piece& piece, FileBytes& to);
    static void ApplyTorn(const Piece& piece, FileBytes& to, std::mt19937& random);

    Names names_;
    Names safe_names_;
    int steps_ = 0;
    int trouble_at_ = 0;
    Trouble trouble_ = Trouble::PowerCut;
    bool off_ = false;
    bool read_only_ = false;
};

}  // namespace jet::test
