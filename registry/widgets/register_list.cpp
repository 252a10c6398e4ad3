#include "registry/widgets/register_list.h"

#include "registry/widgets/colours.h"
#include "registry/widgets/register_delegate.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>

namespace orlo
{

/// The headings above the lines; they stay when the lines scroll.
class RegisterList::Header : public QWidget
{
public:
    explicit Header(RegisterList* list) : QWidget(list) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Base));
        const ColumnPlaces places = PlacesFor(fontMetrics(), width());
        painter.setPen(SecondaryOnBase(palette()));
        for (std::size_t i = 0; i < places.size(); ++i)
            painter.drawText(
                QRect(places[i].left, 0, places[i].width, height() - 1),
                Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                fontMetrics().elidedText(RegisterHeadings()[i], Qt::ElideRight, places[i].width));
        painter.setPen(Hairline(palette()));
        painter.drawLine(0, height() - 1, width(), height() - 1);
    }
};

RegisterList::RegisterList(QWidget* parent)
    : QListWidget(parent), delegate_(new RegisterDelegate(this)), header_(new Header(this))
{
    setItemDelegate(delegate_);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(NoDragDrop);
    connect(this, &QListWidget::currentRowChanged, this, &RegisterList::LineChosen);
    ArrangeHeader();
}

void RegisterList::AddLine(const QString& line)
{
    auto* item = new QListWidgetItem(line, this);
    item->setData(Qt::AccessibleTextRole, QString(line).replace(u'\t', QStringLiteral(", ")));
    viewport()->update();
}

void RegisterList::Choose(int position)
{
    if (position < 0 || position >= count()) return;
    {
        const QSignalBlocker quietly(this);
        setCurrentRow(position);
    }
    viewport()->update();
    emit LineChosen();
}

void RegisterList::MoveCurrentToEnd(const QString& line)
{
    const int position = currentRow();
    {
        const QSignalBlocker quietly(this);
        delete takeItem(position);
        AddLine(line);
    }
    Choose(position);
}

QString RegisterList::CurrentLine() const
{
    return currentItem() != nullptr ? currentItem()->text() : QString();
}

void RegisterList::SetMuted(bool muted)
{
    delegate_->SetMuted(muted);
    viewport()->update();
}

QSize RegisterList::sizeHint() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return {NarrowestRegister(fontMetrics()) + 2 * frameWidth() + bar, 12 * fontMetrics().height()};
}

bool RegisterList::event(QEvent* event)
{
    const bool handled = QListWidget::event(event);
    if (event->type() == QEvent::FontChange) ArrangeHeader();
    return handled;
}

void RegisterList::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (count() == 0) PaintEmptyRegister();
}

void RegisterList::resizeEvent(QResizeEvent* event)
{
    QListWidget::resizeEvent(event);
    ArrangeHeader();
}

// The base class would make the first line current without its being chosen.
void RegisterList::focusInEvent(QFocusEvent* event)
{
    if (currentIndex().isValid())
        QListWidget::focusInEvent(event);
    else
        viewport()->update();
}

void RegisterList::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex pressed = indexAt(event->pos());
    const bool again = pressed.isValid() && pressed == currentIndex();
    QListWidget::mousePressEvent(event);
    if (again && event->button() == Qt::LeftButton) emit LineChosen();
}

// The current line is always the selected one: no key or modifier deselects it.
QItemSelectionModel::SelectionFlags RegisterList::selectionCommand(const QModelIndex& index,
                                                                   const QEvent*) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void RegisterList::ArrangeHeader()
{
    const int height = fontMetrics().height() + 12;
    setViewportMargins(0, height, 0, 0);
    header_->setGeometry(frameWidth(), frameWidth(), viewport()->width(), height);
}

void RegisterList::PaintEmptyRegister()
{
    QPainter painter(viewport());
    const int line = fontMetrics().height();
    const int top = viewport()->height() / 3;
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(0, top, viewport()->width(), line), Qt::AlignCenter,
                     tr("Nessun terminale nel registro."));
    painter.setFont(font());
    painter.setPen(SecondaryOnBase(palette()));
    painter.drawText(QRect(0, top + line + 8, viewport()->width(), line), Qt::AlignCenter,
                     tr("I terminali si aggiungono con orlodesk-registro."));
}

}  // namespace orlo
