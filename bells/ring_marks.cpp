#include "bells/ring_marks.h"

#include "bells/ring_line.h"
#include "bells/ring_text.h"

namespace orlo
{

std::vector<RingMark> MarksOfWeek(const RingTable& table, int terminal, int shown_day,
                                  int entered_ring)
{
    std::vector<RingMark> marks;
    for (int day = 0; day < kRingDays; ++day)
        for (int index = 0; index < kRingsOfDay; ++index) {
            const RingEntry& entry = RingOf(table, terminal, day, index + 1);
            const int minute = MinuteOfDay({entry.Hour, entry.Minute});
            if (minute == 0) continue;
            marks.push_back({day, index, minute, entry.HowLong, /*hollow=*/false,
                             day == shown_day && index == entered_ring});
        }
    return marks;
}

std::vector<RingMark> MarksOfLines(const QStringList& lines, int chosen_line)
{
    std::vector<RingMark> marks;
    for (int line = 0; line < lines.size(); ++line) {
        const BellRow row = CutRingLine(lines[line]);
        for (int day = 0; day < row.Giorni.size(); ++day)
            if (row.Giorni[day] == u'1')
                marks.push_back({day, line, MinuteOfDay({row.Ora, row.Minuti}),
                                 row.NumeroRele == 0 ? 0 : row.TempoRele, row.NumeroRele == 2,
                                 line == chosen_line});
    }
    return marks;
}

}  // namespace orlo
