#pragma once

#include "registry/contenitore.h"

#include <QDialog>

#include <functional>

namespace orlo
{

/// A window of the bells over the main window: modal to it, open for the terminal that is selected
/// there, with commands of its own that run as the main window's do. It is kept when it is closed,
/// and opens again in the size that it had.
class BellWindow : public QDialog
{
    Q_OBJECT

public:
    explicit BellWindow(Contenitore& main);

    /// Shows the window for the selected terminal.
    void OpenForSelected();

    /// Escape closes, but not while a command runs.
    void reject() override;

protected:
    Contenitore& Main() { return main_; }
    int Terminal() const { return terminal_; }

    /// Runs a command behind one of the window's buttons, with the focus parked in `parking` and
    /// everything inert; a close asked for meanwhile follows it. Nothing while another runs.
    void Run(QAbstractButton* button, QWidget& parking, const QString& task,
             const std::function<void()>& command);

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    /// Fonts and colours by the roles of the controls, and room beside the words of the buttons,
    /// for any of them to be the filled one.
    void StyleControls();

    /// For the destructors: hears no control any more. One that loses the focus because the window
    /// goes away would speak to what is gone.
    void Silence();

    /// What is done when the window opens for Terminal().
    virtual void Form_Load() = 0;
    /// What was typed and not left yet is taken, before the window closes.
    virtual void TakePending() {}
    /// Derives fonts and colours again from the window's own.
    virtual void DeriveLook() = 0;
    /// Enables the controls by what the window can do now.
    virtual void RefreshAvailability() = 0;

private:
    void PointTo(Qt::CursorShape shape, Qt::CursorShape over_fields);

    Contenitore& main_;
    int terminal_ = 0;
    bool close_after_command_ = false;
};

}  // namespace orlo
