#include "registry/widgets/scrolling_page.h"

#include "registry/widgets/form_style.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>

namespace orlo
{

ScrollingPage::ScrollingPage(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* control) {
        // Under a pressed button the page stays: what was pressed is in sight.
        const bool pressed = QApplication::mouseButtons() != Qt::NoButton;
        if (control != nullptr && !pressed && widget()->isAncestorOf(control))
            BringIntoSight(*control);
    });
}

QSize ScrollingPage::sizeHint() const
{
    return widget()->sizeHint().expandedTo(minimumSizeHint());
}

QSize ScrollingPage::minimumSizeHint() const
{
    const QSize page = widget()->minimumSizeHint();
    const QSize room = Room();
    QSize least = page;
    // A scroll bar takes from the other direction.
    if (page.width() > room.width()) least += {0, horizontalScrollBar()->sizeHint().height()};
    if (page.height() > room.height()) least += {verticalScrollBar()->sizeHint().width(), 0};
    return least.boundedTo(room);
}

QSize ScrollingPage::Room() const
{
    const QLayout& window_layout = *parentWidget()->layout();
    const QMargins margins = window_layout.contentsMargins();
    int rows = window_layout.spacing() * (window_layout.count() - 1);
    for (int i = 0; i < window_layout.count(); ++i) {
        QLayoutItem* const row = window_layout.itemAt(i);
        if (row->widget() != this) rows += row->minimumSize().height();
    }
    // A window that was not shown yet has no screen: it will be that of the window under it.
    const QWidget* const under = window()->parentWidget();
    return RoomOnScreen(under != nullptr ? *under->window() : *window()).shrunkBy(margins) -
           QSize(0, rows);
}

void ScrollingPage::TakeSizes()
{
    // Layouts inside the page's own may still hold the sizes of before.
    widget()->layout()->activate();
    LetPageGiveWay();
    updateGeometry();
}

/// A page for which the screen has room does not scroll: in a window whose rows have grown, as
/// behind a caption of two lines, it gives way like any layout, its biggest part first.
void ScrollingPage::LetPageGiveWay()
{
    const QSize page = widget()->minimumSizeHint();
    const bool whole = page.boundedTo(Room()) == page;
    widget()->setMinimumSize(whole ? QSize(1, 1) : QSize(0, 0));
}

/// The beginning of a control that is larger than the room.
void ScrollingPage::BringIntoSight(const QWidget& control)
{
    const QRect place(control.mapTo(widget(), QPoint()), control.size());
    ensureVisible(place.x() + place.width(), place.y() + place.height(), 0, 0);
    ensureVisible(place.left(), place.top(), 0, 0);
}

// The sizes of the page are this one's own.
bool ScrollingPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) TakeSizes();
    return QScrollArea::eventFilter(watched, event);
}

void ScrollingPage::resizeEvent(QResizeEvent* event)
{
    LetPageGiveWay();
    QScrollArea::resizeEvent(event);
}

// The focus scrolls by itself, however it came; QScrollArea would show the middle of a control that
// is larger than the room.
bool ScrollingPage::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call): on purpose
}

}  // namespace orlo
