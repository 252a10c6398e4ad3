#include "app/escape_key_watcher.h"

#include "app/termination.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace orlo
{

EscapeKeyWatcher::EscapeKeyWatcher(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

EscapeKeyState EscapeKeyWatcher::Query()
{
    if (Termination::Requested()) return {.pressed_since_last_query = true, .held_now = false};
    return {.pressed_since_last_query = std::exchange(pressed_, false), .held_now = held_};
}

bool EscapeKeyWatcher::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A key held down repeats itself; those presses and releases are not the operator's.
        if (key->key() == Qt::Key_Escape && !key->isAutoRepeat()) {
            held_ = type == QEvent::KeyPress;
            pressed_ = pressed_ || held_;
        }
    }
    // The release of a key held while another program comes to the front is never seen.
    if (type == QEvent::ApplicationDeactivate) held_ = false;
    return QObject::eventFilter(watched, event);
}

}  // namespace orlo
