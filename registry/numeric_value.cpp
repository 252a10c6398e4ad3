#include "registry/numeric_value.h"

#include <QRegularExpression>

namespace orlo
{

double NumericValue(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*([+-]?)(\\d*)(?:,(\\d*))?"));
    const QRegularExpressionMatch match = number.match(text);
    const QString written =
        match.captured(1) + u'0' + match.captured(2) + u'.' + match.captured(3) + u'0';
    // The decimal point and the digits are in the form of the C locale, whatever the window's is.
    return written.toDouble();
}

}  // namespace orlo
