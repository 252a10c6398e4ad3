#include "registry/widgets/elided_panel.h"

#include <QPainter>
#include <QStyle>

namespace orlo
{

ElidedPanel::ElidedPanel(QWidget* parent) : TextPanel(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &TextPanel::TextChanged, this, &ElidedPanel::ShowToolTip);
}

void ElidedPanel::SetRoom(const QString& sample)
{
    sample_ = sample;
    updateGeometry();
}

QSize ElidedPanel::sizeHint() const
{
    const QFontMetrics metrics(PaintedFont());
    return {metrics.horizontalAdvance(sample_), metrics.height()};
}

void ElidedPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(PaintedFont());
    const QString shown =
        painter.fontMetrics().elidedText(PaintedText(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                          isEnabled(), shown, foregroundRole());
}

void ElidedPanel::resizeEvent(QResizeEvent* event)
{
    TextPanel::resizeEvent(event);
    ShowToolTip();
}

void ElidedPanel::ShowToolTip()
{
    const bool cut = QFontMetrics(PaintedFont()).horizontalAdvance(PaintedText()) > width();
    setToolTip(cut ? text() : QString());
}

}  // namespace orlo
