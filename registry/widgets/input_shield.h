#pragma once

#include <QObject>
#include <QWidget>

namespace orlo
{

/// While it lives, the focus is parked and keys, presses, the wheel, drops and mnemonics do not
/// reach the controls of one window; their look stays. Escape passes, so do pointer movements, and
/// other windows, such as the message box of a command, are not touched.
class InputShield : public QObject
{
    Q_OBJECT

public:
    InputShield(QWidget& window, QWidget& parking);
    ~InputShield() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    QWidget& parking_;
};

}  // namespace orlo
