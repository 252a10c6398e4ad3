#include "registry/widgets/outcome_panel.h"

#include "registry/widgets/glyphs.h"

#include <QAccessible>
#include <QPainter>
#include <QStyle>

namespace orlo
{

namespace
{
constexpr int kGap = 7;
}

OutcomePanel::OutcomePanel(QWidget* parent) : TextPanel(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    connect(this, &TextPanel::TextChanged, this, &OutcomePanel::TakeOutcome);
}

void OutcomePanel::SetRemark(const QString& remark)
{
    remark_ = remark;
    setAccessibleDescription(remark);
    updateGeometry();
    ShowToolTip();
    update();
}

QSize OutcomePanel::sizeHint() const
{
    return RoomOf(Caption()).expandedTo(minimumSizeHint());
}

QSize OutcomePanel::minimumSizeHint() const
{
    return RoomOf(QStringLiteral("Comunicazione OK"));
}

QSize OutcomePanel::RoomOf(const QString& caption) const
{
    const QFontMetrics metrics(CaptionFont());
    return {TextLeft() + metrics.horizontalAdvance(caption) + 1, metrics.height() + 2};
}

void OutcomePanel::paintEvent(QPaintEvent*)
{
    const QString caption = Caption();
    if (caption.isEmpty()) return;
    QPainter painter(this);
    const int side = fontMetrics().height();
    const Outcome outcome = text().isEmpty() ? Outcome::Warning : OutcomeOf(text());
    PaintOutcomeGlyph(painter, QRectF(0, (height() - side) / 2.0, side, side), outcome, palette());
    painter.setFont(CaptionFont());
    const QRect place(TextLeft(), 0, width() - TextLeft(), height());
    style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          painter.fontMetrics().elidedText(caption, Qt::ElideRight, place.width()),
                          foregroundRole());
}

void OutcomePanel::resizeEvent(QResizeEvent* event)
{
    TextPanel::resizeEvent(event);
    ShowToolTip();
}

QString OutcomePanel::Caption() const
{
    return text().isEmpty() ? remark_ : text();
}

QFont OutcomePanel::CaptionFont() const
{
    QFont bold = font();
    bold.setBold(!text().isEmpty() || remark_.isEmpty());
    return bold;
}

int OutcomePanel::TextLeft() const
{
    return fontMetrics().height() + kGap;
}

void OutcomePanel::TakeOutcome(const QString& text)
{
    updateGeometry();
    ShowToolTip();
    const Outcome outcome = OutcomeOf(text);
    if (outcome == Outcome::Good || outcome == Outcome::Failure) Alert();
}

void OutcomePanel::Alert()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void OutcomePanel::ShowToolTip()
{
    const int needed = TextLeft() + QFontMetrics(CaptionFont()).horizontalAdvance(Caption());
    setToolTip(needed > width() ? Caption() : QString());
}

}  // namespace orlo
