#pragma once

#include "jet/database.h"
#include "jet/lock_file.h"

#include <QString>

#include <filesystem>
#include <memory>

namespace orlo::registro
{

std::filesystem::path PathOf(const QString& text);
QString TextOf(const std::filesystem::path& path);

/// The database meant by a file, or by the folder that "nimbo.mdb" is in.
std::filesystem::path DatabaseFile(const QString& file_or_folder);

std::unique_ptr<jet::Database> OpenToRead(const QString& file_or_folder);

/// A register that nobody else uses, with the lock file that says so to the main program, and one
/// transaction around everything done to it: without Commit nothing has changed.
class RegisterChange
{
public:
    /// Throws Failure when somebody uses the register, jet::Error.
    explicit RegisterChange(const QString& file_or_folder);

    jet::Database& Database() { return *database_; }
    void Commit() { database_->CommitTrans(); }

private:
    std::unique_ptr<jet::LockFile> lock_;
    std::unique_ptr<jet::Database> database_;
};

}  // namespace orlo::registro
