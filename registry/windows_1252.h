#pragma once

#include <QByteArray>
#include <QString>

namespace orlo
{

// Windows-1252, the code page of the configuration file, the punch file and the listing. The five
// bytes that it leaves undefined (81 8D 8F 90 9D) stand for the control characters of their number.

QString FromWindows1252(const QByteArray& bytes);

/// A file that may be in UTF-8, with or without a byte order mark, and is otherwise taken for
/// Windows-1252: Italian text in the one is hardly ever valid in the other.
QString FromUtf8OrWindows1252(const QByteArray& bytes);

/// The first character that the code page does not have, empty when it has them all.
QString FirstOutsideWindows1252(const QString& text);

/// A character that the code page does not have becomes "?".
QByteArray ToWindows1252(const QString& text);

}  // namespace orlo
