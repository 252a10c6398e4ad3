#pragma once

#include "registry/contenitore.h"

#include <QDialog>

#include <functional>

namespace orlo
{

class TextPanel;

/// A window of a feature, for the terminal that is selected in the main window: modal to it, made
/// once, kept when it is closed and filled anew whenever it is opened. Between its commands it
/// holds no port of its own; a session and the component's line stay open. It is closed by Escape
/// and by its close button, but not while a command runs.
class TerminalWindow : public QDialog
{
    Q_OBJECT

public:
    /// `opener` is the button of the main window that opens it.
    TerminalWindow(Contenitore& desk, QAbstractButton& opener);
    ~TerminalWindow() override;

    Contenitore& Desk() const { return desk_; }

    /// Shows it for the terminal that is selected now, whose number its title, as the form has it,
    /// ends with; one that is open comes to the front.
    void open() override;
    void reject() override;

protected:
    /// The terminal for which it is open.
    int Terminal() const { return terminal_; }

    /// Brings the window into the state in which it opens.
    virtual void Form_Load() = 0;
    /// Fonts, colours and the sizes that follow from them; again after each change of these.
    virtual void DeriveLook();

    /// From now on `panel` says what PannelloComunicazione says while the window is open.
    void ShowOutcomeIn(TextPanel& panel);
    /// Empties PannelloComunicazione and `panel`: what a command says stands out against nothing.
    void ClearOutcome(TextPanel& panel);

    /// Runs a command as one of the main window's, with this window inert too; `parking` has the
    /// focus meanwhile, and who had it before has it again behind the command. A close asked for
    /// meanwhile follows it. Nothing while another command runs. See Contenitore::RunCommand.
    void Run(const QString& task, EscapeUse escape, QWidget& parking,
             const std::function<void()>& command);

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class Busy;

    Contenitore& desk_;
    QAbstractButton& opener_;
    QString title_;
    int terminal_ = 0;
    bool close_after_command_ = false;
};

/// Opens the one window of that class of the main window, which is made when it is first wanted.
template <typename Window>
void OpenTerminalWindow(Contenitore& desk)
{
    auto* window = desk.findChild<Window*>(QString(), Qt::FindDirectChildrenOnly);
    if (window == nullptr) window = new Window(desk);
    window->open();
}

}  // namespace orlo
