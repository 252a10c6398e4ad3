#include "registry/database_error.h"

namespace orlo
{

QString DatabaseErrorText(const jet::Error& error)
{
    const QString number = QString::number(error.Number());
    const QString signed_number = error.Number() < 0 ? number : QLatin1Char(' ') + number;
    return signed_number + QLatin1Char(' ') + QString::fromUtf8(error.what());
}

void ShowDatabaseError(OperatorDialog& dialog, const jet::Error& error)
{
    dialog.Tell(DialogIcon::None, QString(), DatabaseErrorText(error));
}

}  // namespace orlo
