#include "bells/ring_list.h"

#include "bells/ring_columns.h"
#include "bells/ring_line.h"
#include "bells/ring_text.h"
#include "bells/week_days.h"
#include "registry/widgets/colours.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace orlo
{

namespace
{

constexpr std::size_t kFirstFlag = 3;

/// The flags that are set are bold in the lines, not in the heading.
void PaintColumns(QPainter& painter, const QRect& room, const QStringList& texts, bool bold_flags)
{
    // The places are those of the plain font.
    const auto places = RingColumnPlaces(painter.fontMetrics());
    for (std::size_t column = 0; column < places.size(); ++column) {
        const QRect cell(room.left() + places.at(column).left, room.top(), places.at(column).width,
                         room.height());
        const QString text = texts.value(static_cast<qsizetype>(column));
        QFont font = painter.font();
        font.setBold(bold_flags && column >= kFirstFlag && text[0].isLetter());
        painter.setFont(font);
        painter.drawText(cell,
                         Qt::AlignVCenter | Qt::TextSingleLine |
                             (column < kFirstFlag ? Qt::AlignLeft : Qt::AlignHCenter),
                         text);
    }
}

class RingDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const QString line = index.data(Qt::DisplayRole).toString();
        const bool current = (option.state & QStyle::State_Selected) != 0;
        const bool empty = line == EmptyRingLine(line.left(2).toInt());
        painter->save();
        painter->setFont(option.font);
        if (current) painter->fillRect(option.rect, FilledColour(option.palette));
        const QColor text = option.palette.color(
            QPalette::Active, current ? QPalette::HighlightedText : QPalette::Text);
        painter->setPen(empty && !current ? SecondaryOnBase(option.palette) : text);
        PaintColumns(*painter, option.rect, RingColumnTexts(line),
                     /*bold_flags=*/true);
        if (current && (option.state & QStyle::State_HasFocus) != 0) {
            painter->setPen(Blend(text, FilledColour(option.palette), 0.6));
            painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        }
        painter->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {RingColumnsWidth(option.fontMetrics), option.fontMetrics.height() + 6};
    }
};

/// The line in words, for who cannot see the columns.
QString Words(const QString& line)
{
    const BellRow row = CutRingLine(line);
    if (line == EmptyRingLine(row.Locazione))
        return RingList::tr("%1: nessuna suoneria").arg(row.Locazione);
    QStringList days;
    for (int day = 0; day < row.Giorni.size(); ++day)
        if (row.Giorni[day] == u'1') days << WeekDay(day);
    const QString relay = row.NumeroRele == 0   ? RingList::tr("nessun relè")
                          : row.NumeroRele == 1 ? RingList::tr("relè A")
                                                : RingList::tr("relè B");
    return RingList::tr("%1: %2, durata %3, %4, %5")
        .arg(QString::number(row.Locazione), RingTimeText({row.Ora, row.Minuti}),
             QString::number(row.TempoRele),
             days.isEmpty() ? RingList::tr("nessun giorno") : days.join(u' '), relay);
}

}  // namespace

RingList::RingList(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new RingDelegate(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setEditTriggers(NoEditTriggers);
    // What is left below the lines is painted by the list itself.
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void RingList::SetLines(const QStringList& lines)
{
    clear();
    addItems(lines);
    for (int row = 0; row < count(); ++row) SetLine(row, lines[row]);
}

void RingList::SetLine(int row, const QString& line)
{
    item(row)->setText(line);
    item(row)->setData(Qt::AccessibleTextRole, Words(line));
}

QStringList RingList::Lines() const
{
    QStringList lines;
    for (int row = 0; row < count(); ++row) lines << item(row)->text();
    return lines;
}

QSize RingList::sizeHint() const
{
    return {RingColumnsWidth(fontMetrics()) + 2 * frameWidth() +
                verticalScrollBar()->sizeHint().width(),
            12 * fontMetrics().height()};
}

void RingList::resizeEvent(QResizeEvent* event)
{
    QListWidget::resizeEvent(event);
    const int line = sizeHintForRow(0);
    if (line > 0) setViewportMargins(0, 0, 0, (height() - 2 * frameWidth()) % line);
}

QSize RingHeading::sizeHint() const
{
    return {RingColumnsWidth(fontMetrics()), fontMetrics().height()};
}

void RingHeading::paintEvent(QPaintEvent*)
{
    // The frame of the list below.
    constexpr int kFrame = 1;
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    PaintColumns(painter, rect().adjusted(kFrame, 0, 0, 0), text().split(u' ', Qt::SkipEmptyParts),
                 /*bold_flags=*/false);
}

}  // namespace orlo
