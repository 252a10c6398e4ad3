#include "registry/widgets/two_line_label.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace orlo
{

TwoLineLabel::TwoLineLabel(QWidget* parent) : TextPanel(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize TwoLineLabel::sizeHint() const
{
    const QFontMetrics large(Enlarged(font(), kLargeText));
    const QFontMetrics small(font());
    return {std::max(large.horizontalAdvance(QStringLiteral("00:00:00")),
                     small.horizontalAdvance(QStringLiteral("00/00/0000"))),
            large.height() + small.height()};
}

void TwoLineLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString time =
        text().isEmpty() ? QStringLiteral("–") : text().section(QLatin1String(" - "), 1);
    const QString date = text().section(QLatin1String(" - "), 0, 0);
    const QFont large = Enlarged(font(), kLargeText);
    const int first = QFontMetrics(large).height();
    const auto write = [&](const QFont& font, const QRect& place, const QString& words) {
        painter.setFont(font);
        style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), words, foregroundRole());
    };
    write(large, QRect(0, 0, width(), first), time);
    write(font(), QRect(0, first, width(), QFontMetrics(font()).height()), date);
}

}  // namespace orlo
