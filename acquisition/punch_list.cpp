#include "acquisition/punch_list.h"

#include "registry/component_call.h"
#include "registry/widgets/colours.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace orlo
{

namespace
{

constexpr int kMargin = 6;
constexpr int kLinePadding = 6;

/// The dot before a line takes two columns of the font.
int DotRoom(const QFontMetrics& metrics)
{
    return 2 * metrics.horizontalAdvance(u'0');
}

}  // namespace

class PunchList::Line : public QListWidgetItem
{
public:
    Line(const MonitorPunch& punch, QListWidget* list)
        : QListWidgetItem(ComponentText(ComponeRigaMonitor(punch)), list), punch_(punch)
    {
        setData(Qt::AccessibleTextRole, text().simplified());
    }

    const MonitorPunch& Punch() const { return punch_; }

private:
    MonitorPunch punch_;
};

class PunchList::Delegate : public QStyledItemDelegate
{
public:
    explicit Delegate(PunchList& list) : QStyledItemDelegate(&list), list_(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const Line& line = *list_.LineAt(index.row());
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QColor colour = ColourOf(line, option.palette, selected);
        painter->save();
        if (selected) painter->fillRect(option.rect, FilledColour(option.palette));
        const QRect text = option.rect.adjusted(kMargin + DotRoom(option.fontMetrics), 0, 0, 0);
        if (line.Punch().to_acquire) PaintDot(*painter, option, colour);
        painter->setFont(option.font);
        painter->setPen(colour);
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line.text());
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(Blend(colour, option.palette.color(QPalette::Base), 0.6));
            painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
        }
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {0, option.fontMetrics.height() + kLinePadding};
    }

private:
    static QColor ColourOf(const Line& line, const QPalette& palette, bool selected)
    {
        if (selected) return palette.color(QPalette::Active, QPalette::HighlightedText);
        return line.Punch().to_acquire ? palette.color(QPalette::Text) : SecondaryOnBase(palette);
    }

    static void PaintDot(QPainter& painter, const QStyleOptionViewItem& option,
                         const QColor& colour)
    {
        const double side = option.fontMetrics.ascent() * 0.5;
        const QRectF room(option.rect.left() + kMargin, option.rect.top(),
                          option.fontMetrics.horizontalAdvance(u'0'), option.rect.height());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(room.center(), side / 2, side / 2);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setBrush(Qt::NoBrush);
    }

    PunchList& list_;
};

PunchList::PunchList(QWidget* parent) : QListWidget(parent)
{
    setItemDelegate(new Delegate(*this));
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(NoDragDrop);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    AddActions();
}

void PunchList::AddActions()
{
    auto* copy = new QAction(tr("Copia le righe scelte"), this);
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, this, &PunchList::Copy);
    auto* select_all = new QAction(tr("Scegli tutte"), this);
    select_all->setShortcut(QKeySequence::SelectAll);
    connect(select_all, &QAction::triggered, this, &PunchList::selectAll);
    for (QAction* action : {copy, select_all}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

PunchList::Line* PunchList::LineAt(int row) const
{
    return static_cast<Line*>(item(row));
}

void PunchList::Add(const std::vector<MonitorPunch>& punches)
{
    for (const MonitorPunch& punch : punches) {
        auto* line = new Line(punch, this);
        const bool seen = Passes(punch, filter_);
        if (!seen) line->setHidden(true);
        seen_ += seen ? 1 : 0;
    }
    LayOut();
}

// Each line added or hidden throws the layout away until a timer of the view has fired. A window
// that is painted before, as between two blocks, would show an empty list.
void PunchList::LayOut()
{
    executeDelayedItemsLayout();
    viewport()->update();
}

void PunchList::Empty()
{
    clear();
    seen_ = 0;
    viewport()->update();
}

void PunchList::SetFilter(const MonitorFilter& filter)
{
    filter_ = filter;
    seen_ = 0;
    for (int row = 0; row < count(); ++row) {
        const bool seen = Passes(LineAt(row)->Punch(), filter_);
        setRowHidden(row, !seen);
        seen_ += seen ? 1 : 0;
    }
    LayOut();
}

QString PunchList::Text(Lines which) const
{
    QStringList lines;
    for (int row = 0; row < count(); ++row)
        if (!isRowHidden(row) && (which == Lines::Seen || item(row)->isSelected()))
            lines << item(row)->text();
    return lines.join(u'\n');
}

void PunchList::Copy() const
{
    const QString lines = Text(Lines::Selected);
    if (!lines.isEmpty()) QApplication::clipboard()->setText(lines);
}

void PunchList::CopySelectedOrAll() const
{
    const QString selected = Text(Lines::Selected);
    QApplication::clipboard()->setText(selected.isEmpty() ? Text(Lines::Seen) : selected);
}

int PunchList::TextLeft() const
{
    return frameWidth() + kMargin + DotRoom(fontMetrics());
}

int PunchList::WidthOfLines() const
{
    MonitorPunch widest;
    widest.terminal = "00";
    const QString line = QString::fromStdString(ComponeRigaMonitor(widest));
    return TextLeft() + fontMetrics().horizontalAdvance(line) + kMargin +
           verticalScrollBar()->sizeHint().width() + frameWidth();
}

void PunchList::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (LinesSeen() > 0) return;
    QPainter painter(viewport());
    // The list has a font of its own, which fills in what this one leaves open.
    QFont font = parentWidget()->font();
    font.setFamily(font.family());
    painter.setFont(font);
    painter.setPen(SecondaryOnBase(palette()));
    painter.drawText(viewport()->rect(), Qt::AlignCenter,
                     count() == 0 ? tr("Nessuna timbratura letta.")
                                  : tr("Nessuna timbratura corrisponde al filtro."));
}

}  // namespace orlo
