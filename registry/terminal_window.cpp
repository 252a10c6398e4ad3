#include "registry/terminal_window.h"

#include "registry/held_line.h"
#include "registry/widgets/form_style.h"
#include "registry/widgets/input_shield.h"
#include "registry/widgets/scrolling_page.h"
#include "registry/widgets/text_panel.h"

#include "ui_contenitore.h"

#include <QCloseEvent>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <utility>
#include <vector>

namespace orlo
{

/// The window while its command runs. It stands around the main window's command, which lets events
/// in at its begin and its end: what was pressed meanwhile falls on the shield.
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
    }

    ~Busy()
    {
        for (QPushButton* button : disabled_) button->setEnabled(true);
        window_.unsetCursor();
        if (focus_ != nullptr) focus_->setFocus();
    }

    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    TerminalWindow& window_;
    QPointer<QWidget> focus_;
    InputShield shield_;
    std::vector<QPushButton*> disabled_;
};

TerminalWindow::TerminalWindow(Contenitore& desk, QAbstractButton& opener)
    : QDialog(&desk), desk_(desk), opener_(opener)
{
    // A command parks the focus of the main window in its list, and a small screen may have
    // scrolled the button away.
    connect(this, &QDialog::finished, &opener, [this] {
        opener_.setFocus();
        desk_.Controls().ScorrimentoTerminale->ensureWidgetVisible(&opener_);
    });
}

// A control that loses the focus because the window goes away would speak to what is gone.
TerminalWindow::~TerminalWindow()
{
    for (QObject* control : findChildren<QObject*>()) control->disconnect(this);
}

void TerminalWindow::open()
{
    if (isVisible()) {
        raise();
        activateWindow();
        return;
    }
    // While the window is open the clock is not read, and nothing else would close it.
    ClosePortLeftOpen(desk_);
    if (title_.isEmpty()) title_ = windowTitle();
    terminal_ = desk_.SelectedTerminal();
    setWindowTitle(title_ + QString::number(terminal_));
    DeriveLook();
    resize(size().boundedTo(RoomOnScreen(desk_)));
    Form_Load();
    for (ScrollingPage* page : findChildren<ScrollingPage*>()) page->TakeSizes();
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
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    // Room beside the words, for any of the buttons to be the filled one.
    for (QPushButton* button : findChildren<QPushButton*>()) {
        const int words = metrics.size(Qt::TextShowMnemonic, button->text()).width();
        button->setMinimumWidth(std::max(button->minimumWidth(), words + 2 * metrics.height()));
    }
}

void TerminalWindow::ShowOutcomeIn(TextPanel& panel)
{
    // A panel that nobody sees would announce the outcome to assistive programs once more.
    connect(desk_.Controls().PannelloComunicazione, &TextPanel::TextChanged, &panel,
            [this, &panel](const QString& outcome) {
                if (isVisible()) panel.setText(outcome);
            });
}

void TerminalWindow::ClearOutcome(TextPanel& panel)
{
    desk_.Controls().PannelloComunicazione->clear();
    panel.clear();
}

void TerminalWindow::Run(const QString& task, EscapeUse escape, QWidget& parking,
                         const std::function<void()>& command)
{
    if (desk_.CommandRunning()) return;
    {
        const Busy busy(*this, parking);
        desk_.RunCommand(&opener_, task, escape, command);
    }
    if (std::exchange(close_after_command_, false)) close();
}

}  // namespace orlo
