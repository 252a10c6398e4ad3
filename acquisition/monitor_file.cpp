#include "acquisition/monitor_file.h"

#include "registry/system_reason.h"
#include "registry/windows_1252.h"

#include <QFileInfo>

#include <unistd.h>

#include <cerrno>

namespace orlo
{

bool MonitorFile::Open()
{
    file_.setFileName(Name());
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate) || Fail();
}

QString MonitorFile::Path()
{
    return QFileInfo(Name()).absoluteFilePath();
}

void MonitorFile::Write(const QString& line)
{
    if (!IsOpen() || !error_.isEmpty()) return;
    const QByteArray bytes = ToWindows1252(line) + "\r\n";
    if (file_.write(bytes) != bytes.size()) Fail();
}

bool MonitorFile::Close()
{
    if (IsOpen() && error_.isEmpty() && !file_.flush()) Fail();
    if (IsOpen() && error_.isEmpty() && fsync(file_.handle()) != 0) Fail();
    file_.close();
    // A medium over the network may tell only now that it is full.
    if (error_.isEmpty() && file_.error() != QFile::NoError) Fail();
    return error_.isEmpty();
}

bool MonitorFile::Fail()
{
    // The file keeps only words for it, and these in the system's language.
    error_ = SystemReason(errno);
    return false;
}

}  // namespace orlo
