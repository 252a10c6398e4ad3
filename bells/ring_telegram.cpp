#include "bells/ring_telegram.h"

#include "bells/ring_line.h"

#include <QStringList>

namespace orlo
{

std::optional<std::string> RingTelegram(BellTelegram form, const QString& line)
{
    const BellRow row = CutRingLine(line);
    if (form == BellTelegram::Dense && !row.Giorni.contains(u'1')) return std::nullopt;
    const bool spaced = form == BellTelegram::Spaced;
    const QStringList fields{TwoDigits(row.Locazione), TwoDigits(row.Ora), TwoDigits(row.Minuti),
                             row.Giorni, QString::number(row.NumeroRele)};
    return (spaced ? "13 " : "13") + fields.join(u' ').toStdString() + (spaced ? " " : " 0") +
           TwoDigits(row.TempoRele).toStdString();
}

}  // namespace orlo
