#include "registry/widgets/memory_gauge.h"

#include "registry/numeric_value.h"
#include "registry/widgets/colours.h"
#include "registry/widgets/pattern_swatch.h"

#include <QPainter>

#include <algorithm>

namespace orlo
{

MemoryParts MemoryPartsOf(LinkFamily family, const QString& capacity, const QString& punches,
                          const QString& to_acquire)
{
    MemoryParts parts;
    parts.capacity = std::max(0.0, NumericValue(capacity));
    const double held = NumericValue(punches);
    const double waiting = std::clamp(NumericValue(to_acquire), 0.0, parts.capacity);
    const double acquired = family == LinkFamily::Serial ? held - waiting : held;
    parts.to_acquire = waiting;
    parts.acquired = std::clamp(acquired, 0.0, parts.capacity - waiting);
    return parts;
}

MemoryGauge::MemoryGauge(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void MemoryGauge::Show(const MemoryParts& parts)
{
    if (parts == parts_) return;
    parts_ = parts;
    setAccessibleDescription(parts.capacity > 0 ? tr("%1 acquisite, %2 da acquisire su %3")
                                                      .arg(parts.acquired, 0, 'f', 0)
                                                      .arg(parts.to_acquire, 0, 'f', 0)
                                                      .arg(parts.capacity, 0, 'f', 0)
                                                : QString());
    update();
}

QSize MemoryGauge::sizeHint() const
{
    return {0, fontMetrics().height()};
}

void MemoryGauge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF frame(rect().adjusted(0, 0, -1, -1));
    if (!isEnabled()) {
        painter.setPen(Hairline(palette()));
        painter.drawRect(frame);
        return;
    }
    FillPattern(painter, frame, MemoryPattern::Free, palette());
    if (parts_.capacity > 0) {
        const double scale = frame.width() / parts_.capacity;
        const QRectF acquired(frame.left(), frame.top(), parts_.acquired * scale, frame.height());
        const QRectF waiting(acquired.right(), frame.top(), parts_.to_acquire * scale,
                             frame.height());
        FillPattern(painter, acquired, MemoryPattern::Acquired, palette());
        FillPattern(painter, waiting, MemoryPattern::ToAcquire, palette());
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(frame);
}

}  // namespace orlo
