#include "bells/ring_columns.h"

#include "bells/ring_line.h"
#include "bells/week_days.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr int kMargin = 8;
constexpr std::size_t kFirstDay = 3;
constexpr std::size_t kFirstRelay = 11;

int Widest(const QFontMetrics& metrics, std::initializer_list<const char*> texts)
{
    int widest = 0;
    for (const char* text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromUtf8(text)));
    return widest;
}

/// Room behind a column: wide behind the words, wider before the relays.
int GapBehind(std::size_t column, int blank)
{
    const bool last_of_group = column + 1 == kFirstDay || column + 1 == kFirstRelay;
    if (last_of_group) return 4 * blank;
    return column < kFirstDay ? 5 * blank : blank;
}

}  // namespace

std::array<RingColumn, kRingColumns> RingColumnPlaces(const QFontMetrics& metrics)
{
    std::array<RingColumn, kRingColumns> places;
    const int blank = metrics.horizontalAdvance(u' ');
    const int flag = Widest(metrics, {"M", "D", "G"}) + 6;
    const std::array<int, kFirstDay> words = {Widest(metrics, {"Loc", "00"}),
                                              Widest(metrics, {"Ora", "00:00"}),
                                              Widest(metrics, {"Tempo", "00"})};
    int left = kMargin;
    for (std::size_t column = 0; column < kRingColumns; ++column) {
        const int width = column < kFirstDay ? words.at(column) + 2 : flag;
        places.at(column) = {left, width};
        left += width + GapBehind(column, blank);
    }
    return places;
}

int RingColumnsWidth(const QFontMetrics& metrics)
{
    const RingColumn last = RingColumnPlaces(metrics).back();
    return last.left + last.width + kMargin;
}

QStringList RingColumnTexts(const QString& line)
{
    static const QString kUnset = QStringLiteral("·");
    const BellRow row = CutRingLine(line);
    QStringList texts{TwoDigits(row.Locazione), TwoDigits(row.Ora) + u':' + TwoDigits(row.Minuti),
                      TwoDigits(row.TempoRele)};
    for (int day = 0; day < kDayFlags; ++day)
        texts << (row.Giorni[day] == u'1' ? ShortWeekDay(day).left(1) : kUnset);
    texts << (row.NumeroRele == 1 ? QStringLiteral("A") : kUnset);
    texts << (row.NumeroRele == 2 ? QStringLiteral("B") : kUnset);
    return texts;
}

}  // namespace orlo
