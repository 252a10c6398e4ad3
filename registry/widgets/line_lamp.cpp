#include "registry/widgets/line_lamp.h"

#include "registry/widgets/glyphs.h"

#include <QPainter>
#include <QStyle>

namespace orlo
{

namespace
{

constexpr int kGap = 7;

QString NeitherText()
{
    return QStringLiteral("non collegata");
}

}  // namespace

LineLamp::LineLamp(QWidget* parent) : QLabel(parent) {}

QSize LineLamp::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.height() + kGap + metrics.horizontalAdvance(text()), metrics.height() + 2};
}

void LineLamp::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int side = fontMetrics().height();
    const Outcome outcome = kind_ == QLatin1String("ok") ? Outcome::Good : Outcome::Failure;
    PaintOutcomeGlyph(painter, QRectF(0, (height() - side) / 2.0, side, side), outcome, palette());
    style()->drawItemText(&painter, rect().adjusted(side + kGap, 0, 0, 0),
                          Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(),
                          foregroundRole());
}

LineLamps::LineLamps(QWidget* parent) : QWidget(parent) {}

QSize LineLamps::sizeHint() const
{
    const QSize words(fontMetrics().horizontalAdvance(NeitherText()), fontMetrics().height());
    QSize room = words;
    for (const LineLamp* lamp : findChildren<LineLamp*>()) room = room.expandedTo(lamp->sizeHint());
    return room;
}

void LineLamps::paintEvent(QPaintEvent*)
{
    for (const LineLamp* lamp : findChildren<LineLamp*>())
        if (!lamp->isHidden()) return;
    QPainter painter(this);
    painter.setPen(SecondaryOnWindow(palette()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, NeitherText());
}

}  // namespace orlo
