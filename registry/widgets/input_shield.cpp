#include "registry/widgets/input_shield.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace orlo
{

namespace
{

bool IsInput(const QEvent& event)
{
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
            return static_cast<const QKeyEvent&>(event).key() != Qt::Key_Escape;
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputShield::InputShield(QWidget& window, QWidget& parking) : window_(window), parking_(parking)
{
    parking_.setFocus();
    QCoreApplication::instance()->installEventFilter(this);
}

InputShield::~InputShield()
{
    QCoreApplication::instance()->removeEventFilter(this);
}

bool InputShield::eventFilter(QObject* watched, QEvent* event)
{
    if (!IsInput(*event)) return false;
    const auto* control = qobject_cast<QWidget*>(watched);
    if (control == nullptr || (control != &window_ && !window_.isAncestorOf(control))) return false;
    // A press has given the control the focus before it comes here.
    if (event->type() == QEvent::MouseButtonPress) parking_.setFocus();
    return true;
}

}  // namespace orlo
