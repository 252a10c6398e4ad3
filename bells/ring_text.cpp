#include "bells/ring_text.h"

#include "registry/numeric_value.h"

#include <QRegularExpression>

#include <algorithm>

namespace orlo
{

QString RingTimeText(const RingTime& time)
{
    const QString hour = QString::number(time.hour);
    const QString minute = QString::number(time.minute);
    return (time.hour < 10 ? u'0' + hour : hour) +
           (time.minute < 10 ? QStringLiteral(":0") : QStringLiteral(":")) + minute;
}

int MinuteOfDay(const RingTime& time)
{
    return std::clamp(time.hour * 60 + time.minute, 0, 24 * 60 - 1);
}

std::optional<RingTime> RingTimeOf(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^(?:(\\d{0,2}):(\\d{0,2})|(\\d{1,2})(\\d\\d)|(\\d{0,2}))$"));
    const QRegularExpressionMatch match = form.match(QString(text).remove(u' '));
    if (!match.hasMatch()) return std::nullopt;
    const auto number = [&match](std::initializer_list<int> groups) {
        int value = 0;
        for (const int group : groups) value += match.captured(group).toInt();
        return value;
    };
    const RingTime time{number({1, 3, 5}), number({2, 4})};
    if (time.hour > 23 || time.minute > 59) return std::nullopt;
    return time;
}

QString DurationText(const QString& text)
{
    const auto duration = WholeNumber<std::int16_t>(text).value_or(std::int16_t{kLongestRing});
    return QString::number(std::clamp<int>(duration, 0, kLongestRing));
}

}  // namespace orlo
