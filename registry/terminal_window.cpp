#include "registry/terminal_window.h"

#include "registry/widgets/form_style.h"
#include "registry/widgets/input_shield.h"
#include "registry/widgets/text_panel.h"

#include "ui_contenitore.h"

#include <QCloseEvent>
#include <QPointer>
#include <QPushButton>

#include <utility>
#include <vector>

namespace orlo
{

/// The window while its command runs.
class TerminalWindow::Busy
{
public:
    Busy(TerminalWindow& window, QWidget& parking)
        : window_(window), focus_(window.focusWidget()), shield_(window, parking)
    {
        for (QPushButton* button : window.findChildren<QPushButton*>())
            if (button->isEnabled()) disabled_.push_back(button);
        for (QPushButton* button : disabled_) button->setEnabled(false);
        window.setCursor(Qt::WaitCursor);
        // The window shows that it is busy before the first exchange sleeps.
        LetEventsIn();
    }

    ~Busy()
    {
        // What was pressed while an exchange waited falls on the shield.
        LetEventsIn();
        for (QPushButton* button : disabled_) button->setEnabled(true);
        window_.unsetCursor();
        if (focus_ != nullptr) focus_->setFocus();
    }

    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    void LetEventsIn() { window_.desk_.Station().clock.ProcessPendingEvents(); }

    TerminalWindow& window_;
    QPointer<QWidget> focus_;
    InputShield shield_;
    std::vector<QPushButton*> disabled_;
};

TerminalWindow::TerminalWindow(Contenitore& desk, QAbstractButton& opener)
    : QDialog(&desk), desk_(desk), opener_(opener)
{
}

void TerminalWindow::open()
{
    if (isVisible()) {
        raise();
        activateWindow();
        return;
    }
    DeriveLook();
    Form_Load();
    QDialog::open();
}

void TerminalWindow::reject()
{
    if (!desk_.CommandRunning()) QDialog::reject();
}

void TerminalWindow::closeEvent(QCloseEvent* event)
{
    close_after_command_ = desk_.CommandRunning();
    event->setAccepted(!close_after_command_);
    if (!close_after_command_) QDialog::closeEvent(event);
}

void TerminalWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange ||
                      event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    // A window that is not shown derives its look when it is opened.
    if (look && isVisible()) DeriveLook();
}

void TerminalWindow::DeriveLook()
{
    StyleForm(*this);
}

void TerminalWindow::ShowOutcomeIn(TextPanel& panel)
{
    connect(desk_.Controls().PannelloComunicazione, &TextPanel::TextChanged, &panel,
            &TextPanel::setText);
}

void TerminalWindow::ClearOutcome(TextPanel& panel)
{
    desk_.Controls().PannelloComunicazione->clear();
    panel.clear();
}

void TerminalWindow::Run(const QString& task, EscapeUse escape, QWidget& parking,
                         const std::function<void()>& command)
{
    desk_.RunCommand(&opener_, task, escape, [this, &parking, &command] {
        const Busy busy(*this, parking);
        command();
    });
    if (std::exchange(close_after_command_, false)) close();
}

}  // namespace orlo
