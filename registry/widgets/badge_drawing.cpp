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

BadgeField FreePart(const BadgeField& field, const BadgeLayout& layout)
{
    const auto claims = [](const BadgeField& one, int position) {
        return position >= one.start && position < EndOf(one);
    };
    const std::array fields{layout.plant, layout.company, layout.badge};
    BadgeField longest;
    BadgeField run;
    const int end = std::min(EndOf(field), field.start + kLongestDrawn);
    for (int position = field.start; position < end; ++position) {
        const auto claimants = std::count_if(
            fields.begin(), fields.end(), [&](const auto& one) { return claims(one, position); });
        if (claimants > 1)
            run.length = 0;
        else if (run.length++ == 0)
            run.start = position;
        if (run.length > longest.length) longest = run;
    }
    return longest;
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

QRectF BadgeDrawing::Place(const BadgeField& field) const
{
    const BadgePositions positions = PositionsOf(layout_);
    const double cell = (width() - 1.0) / positions.count;
    const int from = std::clamp(field.start - positions.first, 0, positions.count);
    const int to = std::clamp(from + field.length, 0, positions.count);
    return {from * cell, 0, (to - from) * cell, height() - 1.0};
}

void BadgeDrawing::PaintField(QPainter& painter, const BadgeField& field, const QColor& fill) const
{
    if (field.length <= 0) return;
    painter.setPen(isEnabled() ? palette().color(QPalette::WindowText) : Hairline(palette()));
    painter.setBrush(isEnabled() ? fill : palette().color(QPalette::Window));
    painter.drawRect(Place(field));
}

/// The longest of the names that fits.
void BadgeDrawing::PaintName(QPainter& painter, const BadgeField& field,
                             const std::array<QString, 3>& names) const
{
    const QRectF place = Place(FreePart(field, layout_));
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
    for (int i = 0; i < positions.count; ++i) painter.drawRect(Place({positions.first + i, 1}));

    const QColor text = palette().color(QPalette::WindowText);
    PaintField(painter, layout_.plant, Blend(text, ground, 0.20));
    PaintField(painter, layout_.company, Blend(text, ground, 0.09));
    PaintField(painter, layout_.badge, Blend(palette().color(QPalette::Highlight), ground, 0.45));
    for (const BadgeField& overlap : OverlapsOf(layout_))
        painter.fillRect(Place(overlap), QBrush(text, Qt::BDiagPattern));
    PaintName(painter, layout_.plant, {tr("Impianto"), tr("Imp."), tr("I")});
    PaintName(painter, layout_.company, {tr("Azienda"), tr("Az."), tr("A")});
    PaintName(painter, layout_.badge, {tr("Badge"), tr("Bdg"), tr("B")});
}

}  // namespace orlo
