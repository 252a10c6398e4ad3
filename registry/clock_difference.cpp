#include "registry/clock_difference.h"

#include <QDateTime>
#include <QRegularExpression>

#include <optional>

namespace orlo
{

namespace
{

std::optional<QDateTime> ReadMoment(const QString& date, const QString& time)
{
    static const QRegularExpression date_form(
        QStringLiteral("(\\d{1,2})[/.-](\\d{1,2})[/.-](\\d{4}|\\d{2})"));
    static const QRegularExpression time_form(QStringLiteral("(\\d{1,2})[:.](\\d{2})[:.](\\d{2})"));
    const auto day = date_form.match(date);
    const auto hour = time_form.match(time);
    if (!day.hasMatch() || !hour.hasMatch()) return std::nullopt;
    const int year = day.captured(3).toInt();
    const QDate read_day(year < 100 ? 2000 + year : year, day.captured(2).toInt(),
                         day.captured(1).toInt());
    const QTime read_time(hour.captured(1).toInt(), hour.captured(2).toInt(),
                          hour.captured(3).toInt());
    if (!read_day.isValid() || !read_time.isValid()) return std::nullopt;
    return QDateTime(read_day, read_time, Qt::UTC);
}

struct Unit {
    qint64 seconds;
    const char* name;
};

/// In two units, as the larger alone would hide up to half of a difference: "1 min 35 s".
QString Pair(qint64 seconds, const Unit& large, const Unit& small)
{
    QString text =
        QStringLiteral("%1 %2").arg(seconds / large.seconds).arg(QLatin1String(large.name));
    const qint64 rest = seconds % large.seconds / small.seconds;
    if (rest == 0) return text;
    return text + QStringLiteral(" %1 %2").arg(rest).arg(QLatin1String(small.name));
}

QString Amount(qint64 seconds)
{
    constexpr qint64 kMinute = 60;
    constexpr qint64 kHour = 60 * kMinute;
    constexpr qint64 kDay = 24 * kHour;
    if (seconds < kMinute) return QStringLiteral("%1 s").arg(seconds);
    if (seconds < kHour) return Pair(seconds, {kMinute, "min"}, {1, "s"});
    if (seconds < kDay) return Pair(seconds, {kHour, "h"}, {kMinute, "min"});
    return Pair(seconds, {kDay, "g"}, {kHour, "h"});
}

}  // namespace

QString ClockDifference(const QString& terminal_time, const QString& terminal_date,
                        const QString& system)
{
    const auto terminal = ReadMoment(terminal_date, terminal_time);
    const auto pc = ReadMoment(system.section(QLatin1String(" - "), 0, 0),
                               system.section(QLatin1String(" - "), 1));
    if (!terminal || !pc) return {};
    const qint64 difference = pc->secsTo(*terminal);
    if (difference == 0) return QStringLiteral("0 s");
    return (difference > 0 ? u'+' : u'−') + Amount(qAbs(difference));
}

}  // namespace orlo
