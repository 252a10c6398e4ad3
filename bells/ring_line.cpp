#include "bells/ring_line.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace orlo
{

namespace
{

constexpr int kFirstFlagColumn = 23;

QString Flag(bool set)
{
    return set ? QStringLiteral("1") : QStringLiteral("0");
}

bool IsSet(const QString& line, int column)
{
    return line.mid(column - 1, 1) == QLatin1String("1");
}

int Number(const QString& line, int column)
{
    return line.mid(column - 1, 2).toInt();
}

}  // namespace

QString TwoDigits(std::int32_t number)
{
    return QStringLiteral("%1").arg(std::clamp(number, 0, 99), 2, 10, QLatin1Char('0'));
}

QString RingLine(const BellRow& row)
{
    QStringList flags;
    for (int day = 0; day < kDayFlags; ++day) flags << Flag(IsSet(row.Giorni, day + 1));
    return TwoDigits(row.Locazione) + QStringLiteral("   ") + TwoDigits(row.Ora) + u':' +
           TwoDigits(row.Minuti) + QString(5, u' ') + TwoDigits(row.TempoRele) + QString(5, u' ') +
           flags.join(u' ') + QString(4, u' ') + Flag(row.NumeroRele == 1) + u' ' +
           Flag(row.NumeroRele == 2);
}

QString EmptyRingLine(int position)
{
    BellRow row;
    row.Locazione = position;
    return RingLine(row);
}

BellRow CutRingLine(const QString& line)
{
    BellRow row;
    row.Locazione = Number(line, 1);
    row.Ora = Number(line, 6);
    row.Minuti = Number(line, 9);
    row.TempoRele = Number(line, 16);
    row.Giorni.clear();
    for (int day = 0; day < kDayFlags; ++day)
        row.Giorni += Flag(IsSet(line, kFirstFlagColumn + 2 * day));
    row.NumeroRele = IsSet(line, 42) ? 1 : IsSet(line, 44) ? 2 : 0;
    return row;
}

QStringList RingLines(const std::vector<BellRow>& rows)
{
    QStringList lines;
    std::set<std::int32_t> used;
    for (const BellRow& row : rows) {
        const bool position = row.Locazione >= 1 && row.Locazione <= kRingPositions;
        if (position && used.insert(row.Locazione).second) lines << RingLine(row);
    }
    for (int position = 1; position <= kRingPositions; ++position)
        if (!used.contains(position)) lines << EmptyRingLine(position);
    return lines;
}

}  // namespace orlo
