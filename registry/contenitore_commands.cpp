#include "registry/contenitore.h"
#include "registry/widgets/input_shield.h"

#include "ui_contenitore.h"

#include <QCloseEvent>

#include <utility>

namespace orlo
{

/// The window while a command runs, from the start to the end of its life.
class Contenitore::CommandScope
{
public:
    CommandScope(Contenitore& window, const QString& task, EscapeUse escape)
        : window_(window), shield_(window, *window.ui_->ListaTerminali)
    {
        window_.running_ = true;
        window_.task_ = task;
        window_.ui_->LabelEsc->setVisible(escape == EscapeUse::Heeded);
        Show();
        PointTo(Qt::WaitCursor, Qt::WaitCursor);
        // An Escape from before is no wish to stop; and the window shows that it is busy before the
        // first exchange sleeps.
        window_.workstation_.escape.Query();
        window_.workstation_.clock.ProcessPendingEvents();
    }

    ~CommandScope()
    {
        // What was pressed while an exchange waited falls on the shield, not on what follows.
        window_.workstation_.clock.ProcessPendingEvents();
        window_.running_ = false;
        window_.task_.clear();
        window_.ui_->LabelEsc->hide();
        Show();
        PointTo(Qt::ArrowCursor, Qt::IBeamCursor);
    }

    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

private:
    void Show()
    {
        window_.ui_->ListaTerminali->SetMuted(window_.running_);
        window_.RefreshAvailability();
        window_.RefreshNotice();
    }

    // Fields have a pointer of their own. The strip keeps the arrow: there the pointer clears
    // captions.
    void PointTo(Qt::CursorShape shape, Qt::CursorShape over_fields)
    {
        window_.setCursor(shape);
        window_.ui_->StrisciaStato->setCursor(Qt::ArrowCursor);
        for (QLineEdit* field : window_.findChildren<QLineEdit*>()) field->setCursor(over_fields);
    }

    Contenitore& window_;
    InputShield shield_;
};

void Contenitore::RunCommand(QAbstractButton* button, const QString& task, EscapeUse escape,
                             const std::function<void()>& command)
{
    if (running_) return;
    {
        const CommandScope scope(*this, task, escape);
        command();
    }
    if (button->isEnabled()) button->setFocus();
    if (std::exchange(leave_after_command_, false)) AskToLeave();
}

void Contenitore::closeEvent(QCloseEvent* event)
{
    // Whoever ends the program because of the question closes the window with it.
    event->setAccepted(leaving_);
    if (running_)
        leave_after_command_ = true;
    else
        AskToLeave();
}

void Contenitore::AskToLeave()
{
    if (leaving_) return;
    leaving_ = true;
    emit LeaveRequested();
    leaving_ = false;
}

void Contenitore::SetFeatureAvailable(QAbstractButton* button, bool available)
{
    if (available)
        unavailable_.remove(button);
    else
        unavailable_.insert(button);
    RefreshAvailability();
}

void Contenitore::RefreshAvailability()
{
    const bool selected = !ui_->ListaTerminali->CurrentLine().isEmpty();
    ui_->PaginaTerminale->setEnabled(selected);
    ui_->Abilitazione->setEnabled(!running_);
    ui_->NomeFile->setEnabled(!running_);
    for (QAbstractButton* button : commands_) {
        const bool of_line = button == ui_->cmdLogIn || button == ui_->cmdLogOff;
        button->setEnabled(!running_ && !unavailable_.contains(button) && (selected || !of_line) &&
                           (may_save_ || button != ui_->cmdAggiorna));
    }
}

void Contenitore::RefreshNotice()
{
    QString notice = task_;
    if (!running_ && !ui_->ListaTerminali->CurrentLine().isEmpty() &&
        !ui_->Abilitazione->isChecked())
        notice = tr("Terminale non attivo: i comandi non sono disponibili.");
    ui_->LabelAvviso->setText(notice);
}

}  // namespace orlo
