#include "registry/database_error.h"

namespace orlo
{

QString NumberedErrorText(int number, const QString& text)
{
    const QString digits = QString::number(number);
    const QString signed_number = number < 0 ? digits : QLatin1Char(' ') + digits;
    return signed_number + QLatin1Char(' ') + text;
}

QString DatabaseErrorText(const jet::Error& error)
{
    return NumberedErrorText(error.Number(), QString::fromUtf8(error.what()));
}

void ShowDatabaseError(OperatorDialog& dialog, const jet::Error& error)
{
    dialog.Tell(DialogIcon::Critical, QString(), DatabaseErrorText(error));
}

}  // namespace orlo
