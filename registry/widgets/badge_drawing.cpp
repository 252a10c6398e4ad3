#include "registry/widgets/badge_drawing.h"

#include "registry/widgets/colours.h"

#include <QPainter>

#include <algorithm>

namespace orlo
{

namespace
{

/// Drawn even when the fields need fewer: a common badge.
constexpr int kUsualLength = 16;
/// More cannot be told apart in the drawing; the fields themselves show the numbers.
constexpr int kLongestDrawn = 64;

int EndOf(const BadgeField& field)
{
    return field.length > 0 ? field.start + field.length : 0;
}

}  // namespace

BadgePositions PositionsOf(const BadgeLayout& layout)
{
    const std::array fields{layout.plant, layout.company, layout.badge};
    BadgePositions positions;
    int end = 0;
    for (const BadgeField& field : fields) {
        if (field.length > 0 && field.start <= 0) positions.first = 0;
        end = std::max(end, EndOf(field));
    }
    const int length = layout.length > 0 ? layout.length : kUsualLength;
    positions.count = std::clamp(std::max(length, end - positions.first), 1, kLongestDrawn);
    return positions;
}

std::vector<BadgeField> OverlapsOf(const BadgeLayout& layout)
{
    const auto common = [](const BadgeField& one, const BadgeField& other) {
        const int start = std::max(one.start, other.start);
        return BadgeField{start, std::max(0, std::min(EndOf(one), EndOf(other)) - start)};
    };
    std::vector<BadgeField> overlaps{common(layout.plant, layout.company),
                                     common(layout.plant, layout.badge),
                                     common(layout.company, layout.badge)};
    std::erase_if(overlaps, [](const BadgeField& field) { return field.length == 0; });
    std::sort(overlaps.begin(), overlaps.end(),
              [](const BadgeField& a, const BadgeField& b) { return a.start < b.start; });
    return overlaps;
}

BadgeDrawing::BadgeDrawing(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BadgeDrawing::Show(const BadgeLayout& layout)
{
    if (layout == layout_) return;
    layout_ = layout;
    const bool overlap = !OverlapsOf(layout).empty();
    setToolTip(overlap ? tr("Due campi del badge si sovrappongono.") : QString());
    setAccessibleDescription(toolTip());
    update();
}

QSize BadgeDrawing::sizeHint() const
{
    return {0, fontMetrics().height() + 8};
}

QRectF BadgeDrawing::Place(const BadgeField& field, const BadgePositions& positions) const
{
    const double cell = (width() - 1.0) / positions.count;
    const int from = std::clamp(field.start - positions.first, 0, positions.count);
    const int to = std::clamp(from + field.length, 0, positions.count);
    return {from * cell, 0, (to - from) * cell, height() - 1.0};
}

void BadgeDrawing::PaintField(QPainter& painter, const QRectF& place, const QColor& fill,
                              const std::array<QString, 3>& names) const
{
    if (place.width() <= 0) return;
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText) : Hairline(palette()));
    painter.setBrush(isEnabled() ? fill : palette().color(QPalette::Window));
    painter.drawRect(place);
    for (const QString& name : names)
        if (painter.fontMetrics().horizontalAdvance(name) + 4 <= place.width()) {
            painter.setPen(palette().color(QPalette::WindowText));
            painter.drawText(place, Qt::AlignCenter, name);
            return;
        }
}

void BadgeDrawing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const BadgePositions positions = PositionsOf(layout_);
    const QColor ground = palette().color(isEnabled() ? QPalette::Base : QPalette::Window);
    painter.fillRect(rect().adjusted(0, 0, -1, -1), ground);
    painter.setPen(Hairline(palette()));
    for (int i = 0; i < positions.count; ++i)
        painter.drawRect(Place({positions.first + i, 1}, positions));

    const QColor text = palette().color(QPalette::WindowText);
    const QColor highlight = palette().color(QPalette::Highlight);
    PaintField(painter, Place(layout_.plant, positions), Blend(text, ground, 0.20),
               {tr("Impianto"), tr("Imp."), tr("I")});
    PaintField(painter, Place(layout_.company, positions), Blend(text, ground, 0.09),
               {tr("Azienda"), tr("Az."), tr("A")});
    PaintField(painter, Place(layout_.badge, positions), Blend(highlight, ground, 0.45),
               {tr("Badge"), tr("Bdg"), tr("B")});
    for (const BadgeField& overlap : OverlapsOf(layout_))
        painter.fillRect(Place(overlap, positions), QBrush(text, Qt::BDiagPattern));
}

}  // namespace orlo
