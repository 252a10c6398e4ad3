#pragma once

#include <QByteArray>
#include <QString>

namespace orlo::registro
{

/// Writes a file that is not there yet, whole or not at all. Its content is then safe from a power
/// cut, its name when its folder is synced. Throws Failure.
void WriteNewFile(const QString& name, const QByteArray& content);

}  // namespace orlo::registro
