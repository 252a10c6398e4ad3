#include "registro/new_file.h"

#include "registro/failure.h"

#include <QFile>

namespace orlo::registro
{

void WriteNewFile(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (file.exists()) throw Failure(QStringLiteral("Il file \"%1\" esiste già.").arg(name));
    const bool mine = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    if (mine && file.write(content) == content.size() && file.flush()) return;
    const QString reason = file.errorString();
    // Not file.remove(): on a full disk it fails in closing first, and leaves the file there.
    if (mine) QFile::remove(name);
    throw Failure(QStringLiteral("Il file \"%1\" non si può scrivere (%2).").arg(name, reason));
}

}  // namespace orlo::registro
