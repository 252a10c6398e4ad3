#include "bells/week_drawing.h"

#include "bells/mark_colours.h"
#include "bells/mark_places.h"
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
constexpr double kMarkHeight = 4;
constexpr double kBetweenMarks = kMarkHeight + 2;
/// How far from a mark a click still means it.
constexpr double kReach = 7;

int Longest(const std::vector<RingMark>& marks)
{
    int longest = kLongestRing;
    for (const RingMark& mark : marks) longest = std::max(longest, mark.duration);
    return longest;
}

/// As many hours bear their number as have room for it, 24 always.
int HourStep(double hour_height, int line)
{
    for (const int step : {1, 2, 3, 4})
        if (hour_height * step >= line) return step;
    return 6;
}

/// Upright or level, of whole pixels of the device: at a scale of 1.5 a pen paints one line one
/// pixel thick and the next one two.
void PaintLine(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& colour)
{
    const QTransform& device = painter.deviceTransform();
    const int thickness = std::max(1, static_cast<int>(device.m11()));
    const QPointF half(thickness / 2.0, thickness / 2.0);
    const QRect line((device.map(from) - half).toPoint(), (device.map(to) - half).toPoint());
    painter.fillRect(device.inverted().mapRect(
                         QRectF(line.topLeft(), QSize(std::max(line.width() - 1, thickness),
                                                      std::max(line.height() - 1, thickness)))),
                     colour);
}

}  // namespace

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
    return {HoursRoom() + days_ * fontMetrics().averageCharWidth() * 5, line * 8};
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

std::vector<QRectF> WeekDrawing::Places() const
{
    std::vector<QRectF> places(marks_.size());
    const int longest = Longest(marks_);
    for (int day = 0; day < days_; ++day) {
        std::vector<std::size_t> of_day;
        for (std::size_t i = 0; i < marks_.size(); ++i)
            if (marks_[i].day == day) of_day.push_back(i);
        std::ranges::stable_sort(of_day, {}, [this](std::size_t i) { return marks_[i].minute; });

        const QRectF column = Column(day).adjusted(kColumnMargin, 0, -kColumnMargin, 0);
        std::vector<double> middles;
        middles.reserve(of_day.size());
        for (const std::size_t i : of_day)
            middles.push_back(column.top() + column.height() * marks_[i].minute / kMinutesOfDay);
        middles = MovedApart(middles, kBetweenMarks,
                             {column.top() + kMarkHeight / 2, column.bottom() - kMarkHeight / 2});
        for (std::size_t i = 0; i < of_day.size(); ++i)
            places[of_day[i]] = {column.left(), middles[i] - kMarkHeight / 2,
                                 MarkLength(marks_[of_day[i]].duration, longest, column.width()),
                                 kMarkHeight};
    }
    return places;
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
    const std::vector<QRectF> places = Places();
    const RingMark* nearest = nullptr;
    double reach = kReach;
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        const double distance = std::abs(places[i].center().y() - place.y());
        if (marks_[i].day != day || distance > reach) continue;
        nearest = &marks_[i];
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
    if (shaded_ >= 0) painter.fillRect(Column(shaded_), TintedColumn(palette()));
    PaintHours(painter);
    PaintDays(painter);
    const std::vector<QRectF> places = Places();
    for (std::size_t i = 0; i < marks_.size(); ++i) PaintMark(painter, marks_[i], places[i]);
}

void WeekDrawing::PaintHours(QPainter& painter) const
{
    const QRectF grid = Grid();
    const QColor strong = Hairline(palette());
    const QColor faint = Blend(strong, palette().color(QPalette::Base), 0.45);
    const int line = painter.fontMetrics().height();
    const int step = HourStep(grid.height() / kHours, line);
    for (int hour = 0; hour <= kHours; ++hour) {
        const double y = grid.top() + grid.height() * hour / kHours;
        PaintLine(painter, {grid.left(), y}, {grid.right(), y}, hour % 6 == 0 ? strong : faint);
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
        PaintLine(painter, column.topLeft(), column.bottomLeft(), Hairline(palette()));
        if (day >= headings_.size()) continue;
        const int line = painter.fontMetrics().height();
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRectF(column.left(), 0, column.width(), line), Qt::AlignCenter,
                         headings_[day]);
    }
    PaintLine(painter, grid.topRight(), grid.bottomRight(), Hairline(palette()));
}

void WeekDrawing::PaintMark(QPainter& painter, const RingMark& mark, const QRectF& place) const
{
    const QColor colour =
        mark.chosen ? ChosenMark(palette()) : palette().color(QPalette::WindowText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (mark.hollow) {
        painter.setPen(QPen(colour, 1));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRect(place.adjusted(0.5, 0.5, -0.5, -0.5));
    } else {
        painter.fillRect(place, colour);
    }
    if (mark.chosen) {
        const double x = place.left() - kColumnMargin;
        const double y = place.center().y();
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(QPolygonF{{x, y - 4}, {x + 4, y}, {x, y + 4}});
    }
    painter.restore();
}

}  // namespace orlo
