#pragma once

#include <QFile>
#include <QString>

namespace orlo
{

/// The listing "MONITOR.TXT" of one reading: the lines of the list in Windows-1252, each with its
/// CR LF. It lies in the working directory, as the punch file does.
class MonitorFile
{
public:
    /// Replaces an earlier listing by an empty one.
    [[nodiscard]] bool Open();
    bool IsOpen() const { return file_.isOpen(); }

    /// Behind a failure nothing more is written; Close tells of it. Does nothing when not open.
    void Write(const QString& line);
    /// Puts the listing on the disk. False when a part of it could not be written.
    [[nodiscard]] bool Close();

    /// Why it failed.
    const QString& Error() const { return error_; }

    static QString Name() { return QStringLiteral("MONITOR.TXT"); }
    /// With the working directory, for the operator to find it.
    static QString Path();

private:
    bool Fail();

    QFile file_;
    QString error_;
};

}  // namespace orlo
