#include "bells/bell_window.h"

#include "registry/contenitore_controls.h"
#include "registry/widgets/form_style.h"
#include "registry/widgets/input_shield.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace orlo
{

BellWindow::BellWindow(Contenitore& main) : QDialog(&main), main_(main)
{
    setWindowModality(Qt::WindowModal);
    // The command parks the main window's focus in its list.
    connect(this, &QDialog::finished, this, [this] { main_.Controls().cmdSuonerie->setFocus(); });
}

void BellWindow::OpenForSelected()
{
    terminal_ = main_.SelectedTerminal();
    setWindowTitle(QStringLiteral("Suonerie Terminale n° %1").arg(terminal_));
    DeriveLook();
    Form_Load();
    RefreshAvailability();
    open();
}

void BellWindow::StyleControls()
{
    StyleForm(*this);
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    for (QPushButton* button : findChildren<QPushButton*>()) {
        const int words = metrics.size(Qt::TextShowMnemonic, button->text()).width();
        button->setMinimumWidth(std::max(button->minimumWidth(), words + 2 * metrics.height()));
    }
}

void BellWindow::Silence()
{
    for (QObject* control : findChildren<QObject*>()) control->disconnect(this);
}

void BellWindow::reject()
{
    if (main_.CommandRunning()) return;
    TakePending();
    QDialog::reject();
}

void BellWindow::closeEvent(QCloseEvent* event)
{
    close_after_command_ = main_.CommandRunning();
    if (close_after_command_)
        event->ignore();
    else
        QDialog::closeEvent(event);
}

void BellWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange ||
                      event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    if (look && terminal_ != 0) DeriveLook();
}

void BellWindow::Run(QAbstractButton* button, QWidget& parking, const QString& task,
                     const std::function<void()>& command)
{
    if (main_.CommandRunning()) return;
    {
        const InputShield shield(*this, parking);
        PointTo(Qt::WaitCursor, Qt::WaitCursor);
        main_.RunCommand(button, task, EscapeUse::Ignored, [&] {
            RefreshAvailability();
            command();
        });
        PointTo(Qt::ArrowCursor, Qt::IBeamCursor);
    }
    RefreshAvailability();
    if (button->isEnabled()) button->setFocus();
    if (std::exchange(close_after_command_, false)) close();
}

void BellWindow::PointTo(Qt::CursorShape shape, Qt::CursorShape over_fields)
{
    setCursor(shape);
    for (QLineEdit* field : findChildren<QLineEdit*>()) field->setCursor(over_fields);
}

}  // namespace orlo
