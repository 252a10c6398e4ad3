#include "registro/new_file.h"

#include "registro/failure.h"

#include <QFile>

#include <unistd.h>

#include <cerrno>

namespace orlo::registro
{

void WriteNewFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (file.exists()) throw Failure(QStringLiteral("Il file \"%1\" esiste già.").arg(name));
    const bool mine = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    const bool written = mine && file.write(content) == content.size() && file.flush();
    const bool synced = written && fsync(file.handle()) == 0;
    if (synced) return;
    const QString reason = written ? qt_error_string(errno) : file.errorString();
    // Not file.remove(): on a full disk it fails in closing first, and leaves the file there.
    if (mine) QFile::remove(name);
    throw Failure(QStringLiteral("Il file \"%1\" non si può scrivere (%2).").arg(name, reason));
}

}  // namespace orlo::registro
