#include "registry/widgets/outcome_panel.h"

#include "registry/widgets/glyphs.h"

#include <QAccessible>
#include <QPainter>
#include <QStyle>

#include <algorithm>

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

void OutcomePanel::ShowLine(const QString& line, Outcome outcome)
{
    outcome_of_line_ = outcome;
    setText(line);
}

void OutcomePanel::ShowNoted(const QString& caption, const QString& note)
{
    // The same caption with another note is another outcome.
    clear();
    next_note_ = note;
    setText(caption);
    next_note_.clear();
}

void OutcomePanel::SetBold(bool bold)
{
    bold_ = bold;
    updateGeometry();
    ShowToolTip();
    update();
}

void OutcomePanel::SetRoom(const QString& sample)
{
    sample_ = sample;
    updateGeometry();
}

void OutcomePanel::SetRemark(const QString& remark)
{
    remark_ = remark;
    ShowCaption();
}

QSize OutcomePanel::sizeHint() const
{
    return RoomOf(Caption()).expandedTo(minimumSizeHint());
}

QSize OutcomePanel::minimumSizeHint() const
{
    return RoomOf(sample_);
}

int OutcomePanel::heightForWidth(int width) const
{
    const QRect room(0, 0, width - TextLeft(), QWIDGETSIZE_MAX);
    const QFontMetrics metrics(CaptionFont());
    const int lines = metrics.boundingRect(room, Qt::TextWordWrap, Caption()).height();
    return std::max(lines, metrics.height()) + 2;
}

QSize OutcomePanel::RoomOf(const QString& caption) const
{
    // The room does not depend on the weight.
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    return {TextLeft() + metrics.horizontalAdvance(caption) + 1, metrics.height() + 2};
}

void OutcomePanel::paintEvent(QPaintEvent*)
{
    const QString caption = Caption();
    if (caption.isEmpty()) return;
    QPainter painter(this);
    const int side = fontMetrics().height();
    PaintOutcomeGlyph(painter, QRectF(0, (height() - side) / 2.0, side, side), ShownOutcome(),
                      palette());
    painter.setFont(CaptionFont());
    const QRect place(TextLeft(), 0, width() - TextLeft(), height());
    const int flags =
        static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | (wordWrap() ? Qt::TextWordWrap : 0);
    style()->drawItemText(
        &painter, place, flags, palette(), isEnabled(),
        wordWrap() ? caption
                   : painter.fontMetrics().elidedText(caption, Qt::ElideRight, place.width()),
        foregroundRole());
}

void OutcomePanel::resizeEvent(QResizeEvent* event)
{
    TextPanel::resizeEvent(event);
    ShowToolTip();
}

Outcome OutcomePanel::ShownOutcome() const
{
    if (text().isEmpty()) return remark_.isEmpty() ? Outcome::None : Outcome::Warning;
    const Outcome outcome = outcome_of_line_.value_or(OutcomeOf(text()));
    return outcome == Outcome::Good && !note_.isEmpty() ? Outcome::Warning : outcome;
}

QString OutcomePanel::Caption() const
{
    if (text().isEmpty()) return remark_;
    return note_.isEmpty() ? text() : QStringLiteral("%1 (%2)").arg(text(), note_);
}

QFont OutcomePanel::CaptionFont() const
{
    QFont bold = font();
    bold.setBold(bold_ && !text().isEmpty());
    return bold;
}

int OutcomePanel::TextLeft() const
{
    return fontMetrics().height() + kGap;
}

void OutcomePanel::TakeOutcome()
{
    note_ = next_note_;
    ShowCaption();
    const Outcome outcome = text().isEmpty() ? Outcome::None : ShownOutcome();
    if (outcome == Outcome::Good || outcome == Outcome::Failure) Alert();
}

void OutcomePanel::ShowCaption()
{
    setAccessibleDescription(Caption());
    updateGeometry();
    ShowToolTip();
    update();
}

void OutcomePanel::Alert()
{
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void OutcomePanel::ShowToolTip()
{
    const int needed = TextLeft() + QFontMetrics(CaptionFont()).horizontalAdvance(Caption());
    setToolTip(needed > width() && !wordWrap() ? Caption() : QString());
}

}  // namespace orlo
