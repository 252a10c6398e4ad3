#include "bells/week_drawing.h"

#include "bells/ring_text.h"
#include "bells/week_days.h"
#include "registry/widgets/colours.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

constexpr int kHours = 24;
constexpr int kMinutesOfDay = kHours * 60;
constexpr double kColumnMargin = 5;
constexpr double kMarkHeight = 5;
/// A ring without duration, which does not sound, is still there.
constexpr double kShortestMark = 2;
/// How far from a mark a click still means it.
constexpr double kReach = 7;

int Longest(const std::vector<RingMark>& marks)
{
    int longest = kLongestRing;
    for (const RingMark& mark : marks) longest = std::max(longest, mark.duration);
    return longest;
}

}  // namespace

double MarkLength(int duration, int longest, double room)
{
    return std::max(kShortestMark, room * duration / longest);
}

WeekDrawing::WeekDrawing(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void WeekDrawing::SetDays(int days, const QStringList& headings)
{
    days_ = days;
    headings_ = headings;
    update();
}

void WeekDrawing::Show(std::vector<RingMark> marks)
{
    if (marks == marks_) return;
    marks_ = std::move(marks);
    QStringList words;
    for (const RingMark& mark : marks_) words << WordsOf(mark);
    setAccessibleDescription(words.isEmpty() ? tr("Nessuna suoneria")
                                             : words.join(QStringLiteral("; ")));
    update();
}

void WeekDrawing::ShadeDay(int day)
{
    shaded_ = day;
    update();
}

int WeekDrawing::HoursRoom() const
{
    return fontMetrics().horizontalAdvance(QStringLiteral("24")) + 8;
}

QSize WeekDrawing::minimumSizeHint() const
{
    const int line = fontMetrics().height();
    return {HoursRoom() + days_ * fontMetrics().averageCharWidth() * 6, line * 14};
}

QRectF WeekDrawing::Grid() const
{
    const int line = fontMetrics().height();
    const double top = headings_.isEmpty() ? line / 2.0 : 1.5 * line + 2;
    return {HoursRoom() + 0.5, std::floor(top) + 0.5, width() - HoursRoom() - 1.0,
            std::floor(height() - top - line / 2.0) - 1};
}

QRectF WeekDrawing::Column(int day) const
{
    const QRectF grid = Grid();
    const double width = grid.width() / days_;
    return {grid.left() + day * width, grid.top(), width, grid.height()};
}

QRectF WeekDrawing::PlaceOf(const RingMark& mark) const
{
    const QRectF column = Column(mark.day).adjusted(kColumnMargin, 0, -kColumnMargin, 0);
    const double y = column.top() + column.height() * mark.minute / kMinutesOfDay;
    return {column.left(), y - kMarkHeight / 2,
            MarkLength(mark.duration, Longest(marks_), column.width()), kMarkHeight};
}

int WeekDrawing::DayAt(const QPointF& place) const
{
    const QRectF grid = Grid();
    if (place.x() < grid.left() || place.x() >= grid.right()) return -1;
    return std::min(days_ - 1,
                    static_cast<int>((place.x() - grid.left()) / (grid.width() / days_)));
}

const RingMark* WeekDrawing::MarkAt(const QPointF& place) const
{
    const int day = DayAt(place);
    const RingMark* nearest = nullptr;
    double reach = kReach;
    for (const RingMark& mark : marks_) {
        const double distance = std::abs(PlaceOf(mark).center().y() - place.y());
        if (mark.day != day || distance > reach) continue;
        nearest = &mark;
        reach = distance;
    }
    return nearest;
}

QString WeekDrawing::WordsOf(const RingMark& mark) const
{
    return tr("%1 %2, durata %3")
        .arg(WeekDay(mark.day), RingTimeText({mark.minute / 60, mark.minute % 60}))
        .arg(mark.duration);
}

bool WeekDrawing::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const RingMark* mark = MarkAt(help->pos());
    QToolTip::showText(help->globalPos(), mark == nullptr ? QString() : WordsOf(*mark), this);
    return true;
}

void WeekDrawing::mousePressEvent(QMouseEvent* event)
{
    const int day = DayAt(event->position());
    if (event->button() != Qt::LeftButton || day < 0) return;
    if (const RingMark* mark = MarkAt(event->position()))
        emit MarkChosen(mark->day, mark->ring);
    else
        emit DayChosen(day);
}

void WeekDrawing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(Grid(), palette().color(QPalette::Base));
    PaintHours(painter);
    PaintDays(painter);
    // The chosen ones last: nothing covers them.
    for (const bool chosen : {false, true})
        for (const RingMark& mark : marks_)
            if (mark.chosen == chosen) PaintMark(painter, mark);
}

void WeekDrawing::PaintHours(QPainter& painter) const
{
    const QRectF grid = Grid();
    const QColor strong = Hairline(palette());
    const QColor faint = Blend(strong, palette().color(QPalette::Base), 0.45);
    const int line = painter.fontMetrics().height();
    // As many hours bear their number as have room for it.
    const int step = grid.height() / kHours >= line ? 1 : 2;
    for (int hour = 0; hour <= kHours; ++hour) {
        const double y = grid.top() + grid.height() * hour / kHours;
        painter.setPen(hour % 6 == 0 ? strong : faint);
        painter.drawLine(QPointF(grid.left(), y), QPointF(grid.right(), y));
        if (hour % step != 0) continue;
        painter.setPen(SecondaryOnWindow(palette()));
        painter.drawText(QRectF(0, y - line / 2.0, HoursRoom() - 5, line),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(hour));
    }
}

void WeekDrawing::PaintDays(QPainter& painter) const
{
    const QRectF grid = Grid();
    for (int day = 0; day < days_; ++day) {
        const QRectF column = Column(day);
        if (day == shaded_) {
            QColor tint = FilledColour(palette());
            tint.setAlphaF(0.18F);
            painter.fillRect(column, tint);
        }
        painter.setPen(Hairline(palette()));
        painter.drawLine(column.topLeft(), column.bottomLeft());
        if (day >= headings_.size()) continue;
        const int line = painter.fontMetrics().height();
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRectF(column.left(), 0, column.width(), line), Qt::AlignCenter,
                         headings_[day]);
    }
    painter.setPen(Hairline(palette()));
    painter.drawLine(grid.topRight(), grid.bottomRight());
}

void WeekDrawing::PaintMark(QPainter& painter, const RingMark& mark) const
{
    const QRectF place = PlaceOf(mark);
    const QColor ground = palette().color(QPalette::Base);
    const QColor colour =
        mark.chosen ? FilledColour(palette()) : palette().color(QPalette::WindowText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // A rim in the colour of the ground parts rings that follow each other closely.
    painter.fillRect(place.adjusted(-1, -1, 1, 1), ground);
    if (mark.hollow) {
        painter.setPen(QPen(colour, 1));
        painter.setBrush(ground);
        painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
    } else {
        painter.fillRect(place, colour);
    }
    if (mark.chosen) {
        const double y = place.center().y();
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        const double x = place.left() - kColumnMargin;
        painter.drawPolygon(QPolygonF{{x, y - 4}, {x + 4, y}, {x, y + 4}});
    }
    painter.restore();
}

}  // namespace orlo
