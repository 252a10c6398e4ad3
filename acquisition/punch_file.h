#pragma once

#include <QString>

#include <string_view>

namespace orlo
{

/// The text file of the payroll program, to which punches are appended.
///
/// Invariants, in the order in which an answer goes through them:
///  1. Room for the lines of an answer is secured before the answer is asked for.
///  2. The lines of an answer are written whole or not at all: after a failure the file is cut back
///  to
///     its length before the answer.
///  3. Only what Sync has put on the disk, in the file that still stands under its name, may be
///     acknowledged to the terminal.
///
/// Every member returns true on success; otherwise Error() is the reason, see SystemReason.
class PunchFile
{
public:
    PunchFile() = default;
    ~PunchFile();
    PunchFile(const PunchFile&) = delete;
    PunchFile& operator=(const PunchFile&) = delete;

    /// Opens for appending; the file is created if missing. A name without a folder is relative to
    /// the working directory.
    [[nodiscard]] bool Open(const QString& name);

    /// Secures disk space behind the end of the file without changing its length. A file system
    /// that cannot do that is no failure.
    [[nodiscard]] bool SecureRoom(std::size_t bytes);

    /// Writes the lines of one answer. After a failure the file has its length before them.
    [[nodiscard]] bool Append(std::string_view lines);

    /// Puts on the disk what the last Append wrote. After a failure the file has its length before
    /// it.
    [[nodiscard]] bool Sync();

    const QString& Error() const { return error_; }

private:
    bool Fail(int system_error);
    bool CutBack(int system_error);
    bool StillUnderItsName() const;

    int descriptor_ = -1;
    QByteArray path_;
    long long length_before_answer_ = 0;
    QString error_;
};

}  // namespace orlo
