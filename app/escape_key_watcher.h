#pragma once

#include "link/escape_key.h"

#include <QObject>

namespace orlo
{

/// Watches the Escape key through the application's events. A request to end the program counts as
/// a short press, so that a long procedure ends between two exchanges.
class EscapeKeyWatcher : public QObject, public EscapeKey
{
    Q_OBJECT

public:
    /// Watches the events of the whole application.
    explicit EscapeKeyWatcher(QObject* parent = nullptr);

    EscapeKeyState Query() override;
    void Forget() override { pressed_ = false; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool pressed_ = false;
    bool held_ = false;
};

}  // namespace orlo
