#include "registry/widgets/register_delegate.h"

#include "registry/terminal_type.h"
#include "registry/widgets/colours.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <initializer_list>

namespace orlo
{

namespace
{

constexpr int kMargin = 7;
constexpr int kColumnGap = 14;
constexpr std::size_t kDescription = 2;
constexpr std::size_t kActive = 4;

int Widest(const QFontMetrics& metrics, std::initializer_list<QString> texts)
{
    int widest = 0;
    for (const QString& text : texts) widest = std::max(widest, metrics.horizontalAdvance(text));
    return widest;
}

/// The dot takes a square of the letters' height and the room of a blank behind it.
int DotRoom(const QFontMetrics& metrics)
{
    return metrics.ascent() + metrics.horizontalAdvance(u' ');
}

std::array<int, kRegisterColumns> NaturalWidths(const QFontMetrics& metrics)
{
    const auto& heading = RegisterHeadings();
    int type = metrics.horizontalAdvance(heading[1]);
    for (const TerminalModel& model : TerminalModels())
        type = std::max(type, metrics.horizontalAdvance(model.name));
    // A text exactly as wide as its column would be elided: advances are rounded.
    constexpr int kSlack = 2;
    std::array<int, kRegisterColumns> widths{
        Widest(metrics, {heading[0], QStringLiteral("00")}),
        type,
        Widest(metrics, {heading[kDescription], QStringLiteral("MMMMMMMM")}),
        Widest(metrics, {heading[3], QStringLiteral("Abilitazione"), QStringLiteral("Esonero PIN"),
                         QStringLiteral("Funz.Allarme")}),
        std::max(metrics.horizontalAdvance(heading[kActive]),
                 DotRoom(metrics) + Widest(metrics, {QStringLiteral("Sì"), QStringLiteral("No")})),
        Widest(metrics, {heading[5], QStringLiteral("Presenze"), QStringLiteral("Pres/Acc"),
                         QStringLiteral("Accessi")}),
    };
    for (int& width : widths) width += kSlack;
    return widths;
}

int FixedRoom(const std::array<int, kRegisterColumns>& widths)
{
    int room = 2 * kMargin + kColumnGap * static_cast<int>(kRegisterColumns - 1);
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (i != kDescription) room += widths[i];
    return room;
}

void PaintDot(QPainter& painter, const QRect& cell, bool filled, const QColor& colour)
{
    const double side = painter.fontMetrics().ascent() * 0.72;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.2));
    painter.setBrush(filled ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(cell.left() + 0.6, cell.center().y() - side / 2 + 0.5, side, side));
    painter.restore();
}

struct LineColours {
    QColor main;
    QColor other;
};

LineColours ColoursFor(const QPalette& palette, bool current, bool quiet)
{
    if (current) {
        const QColor text = palette.color(QPalette::Active, QPalette::HighlightedText);
        return {text, text};
    }
    const QColor secondary = SecondaryOnBase(palette);
    return {quiet ? secondary : palette.color(QPalette::Text), secondary};
}

}  // namespace

const std::array<QString, kRegisterColumns>& RegisterHeadings()
{
    static const std::array<QString, kRegisterColumns> headings{
        QStringLiteral("N°"),       QStringLiteral("Tipo"),   QStringLiteral("Descrizione"),
        QStringLiteral("Funzione"), QStringLiteral("Attivo"), QStringLiteral("Modalità")};
    return headings;
}

ColumnPlaces PlacesFor(const QFontMetrics& metrics, int width)
{
    auto widths = NaturalWidths(metrics);
    widths[kDescription] = std::max(0, width - FixedRoom(widths));
    ColumnPlaces places;
    int left = kMargin;
    for (std::size_t i = 0; i < places.size(); ++i) {
        places[i] = {left, widths[i]};
        left += widths[i] + kColumnGap;
    }
    return places;
}

int NarrowestRegister(const QFontMetrics& metrics)
{
    const auto widths = NaturalWidths(metrics);
    return FixedRoom(widths) + metrics.horizontalAdvance(RegisterHeadings()[kDescription]);
}

void RegisterDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const bool current = view != nullptr && view->currentIndex() == index;
    const RegisterColumns columns = SplitRegisterLine(index.data(Qt::DisplayRole).toString());
    const bool active = columns.active == QStringLiteral("Sì");
    const LineColours colours = ColoursFor(option.palette, current, muted_ || !active);
    const ColumnPlaces places = PlacesFor(option.fontMetrics, option.rect.width());

    painter->save();
    painter->setFont(option.font);
    if (current) painter->fillRect(option.rect, FilledColour(option.palette));
    const auto cell = [&](std::size_t column) {
        return QRect(option.rect.left() + places[column].left, option.rect.top(),
                     places[column].width, option.rect.height());
    };
    const auto write = [&](const QRect& place, const QString& text, const QColor& colour) {
        painter->setPen(colour);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    };
    write(cell(0), columns.number, colours.main);
    write(cell(1), columns.type, colours.main);
    write(cell(kDescription), columns.description, colours.main);
    write(cell(3), columns.function, colours.other);
    if (!columns.active.isEmpty()) PaintDot(*painter, cell(kActive), active, colours.other);
    write(cell(kActive).adjusted(DotRoom(option.fontMetrics), 0, 0, 0), columns.active,
          colours.other);
    write(cell(5), columns.mode, colours.other);
    if (current && view->hasFocus()) {
        painter->setPen(Blend(colours.main, FilledColour(option.palette), 0.6));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
    painter->restore();
}

QSize RegisterDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {0, option.fontMetrics.height() + 10};
}

bool RegisterDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString words = SplitRegisterLine(index.data(Qt::DisplayRole).toString()).description;
    const int room = PlacesFor(option.fontMetrics, option.rect.width())[kDescription].width;
    const bool cut = option.fontMetrics.horizontalAdvance(words) > room;
    QToolTip::showText(event->globalPos(), cut ? words : QString(), view);
    return true;
}

}  // namespace orlo
