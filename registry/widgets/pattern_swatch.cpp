#include "registry/widgets/pattern_swatch.h"

#include "registry/widgets/colours.h"

#include <QPainter>

namespace orlo
{

namespace
{

constexpr double kHatchStep = 4;

void Hatch(QPainter& painter, const QRectF& place, const QPalette& palette)
{
    painter.fillRect(place, FilledColour(palette));
    painter.save();
    painter.setClipRect(place);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::HighlightedText), 1.2));
    const int lines = static_cast<int>((place.width() + place.height()) / kHatchStep) + 1;
    for (int line = 0; line < lines; ++line) {
        const double x = place.left() - place.height() + line * kHatchStep;
        painter.drawLine(QPointF(x, place.bottom()), QPointF(x + place.height(), place.top()));
    }
    painter.restore();
}

}  // namespace

void FillPattern(QPainter& painter, const QRectF& place, MemoryPattern pattern,
                 const QPalette& palette)
{
    painter.fillRect(place, palette.color(QPalette::Base));
    if (pattern == MemoryPattern::Acquired)
        painter.fillRect(place, Blend(palette.color(QPalette::WindowText),
                                      palette.color(QPalette::Window), 0.45));
    if (pattern == MemoryPattern::ToAcquire) Hatch(painter, place, palette);
}

PatternSwatch::PatternSwatch(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PatternSwatch::sizeHint() const
{
    const int side = fontMetrics().ascent();
    return {side, side};
}

void PatternSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setPen(Hairline(palette()));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        return;
    }
    const MemoryPattern pattern = pattern_ == QLatin1String("pieno")    ? MemoryPattern::Acquired
                                  : pattern_ == QLatin1String("tratto") ? MemoryPattern::ToAcquire
                                                                        : MemoryPattern::Free;
    FillPattern(painter, rect(), pattern, palette());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace orlo
