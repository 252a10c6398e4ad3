#include "app/escape_key_watcher.h"

#include "app/termination.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace orlo
{

EscapeKeyWatcher::EscapeKeyWatcher(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

EscapeKeyState EscapeKeyWatcher::Query()
{
    if (Termination::Requested()) return {.pressed_since_last_query = true, .held_now = false};
    const EscapeKeyState state{.pressed_since_last_query = pressed_, .held_now = held_};
    // A reading looks every few milliseconds, more often than a finger comes up.
    pressed_ = pressed_ && held_;
    return state;
}

bool EscapeKeyWatcher::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A key held down repeats itself: it is no short press, nor are its repetitions.
        if (key->key() == Qt::Key_Escape && key->isAutoRepeat()) {
            pressed_ = false;
        } else if (key->key() == Qt::Key_Escape) {
            held_ = type == QEvent::KeyPress;
            pressed_ = pressed_ || held_;
        }
    }
    // The release of a key held while another program comes to the front is never seen.
    if (type == QEvent::ApplicationDeactivate) held_ = false;
    return QObject::eventFilter(watched, event);
}

}  // namespace orlo
