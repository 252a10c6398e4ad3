#include "registry/contenitore.h"
#include "registry/widgets/glyphs.h"
#include "registry/widgets/input_shield.h"

#include "ui_contenitore.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

#include <utility>

namespace orlo
{

/// The window while a command runs, from the start to the end of its life.
class Contenitore::CommandScope
{
public:
    CommandScope(Contenitore& window, const QString& task, EscapeUse escape)
        : window_(window),
          terminal_(window.SelectedTerminal()),
          shield_(window, *window.ui_->ListaTerminali)
    {
        window_.running_ = true;
        window_.task_ = task;
        // They are those of a command before.
        window_.ui_->PannelloTentativi->clear();
        window_.ui_->LabelEsc->setVisible(escape == EscapeUse::Heeded);
        Show();
        PointTo(Qt::WaitCursor, Qt::WaitCursor);
        // An Escape from before is no wish to stop; and the window shows that it is busy before the
        // first exchange sleeps.
        window_.workstation_.escape.Forget();
        window_.workstation_.clock.ProcessPendingEvents();
    }

    ~CommandScope()
    {
        // What was pressed while an exchange waited falls on the shield, not on what follows.
        window_.workstation_.clock.ProcessPendingEvents();
        window_.running_ = false;
        window_.ShowLastOutcome(terminal_);
        window_.task_.clear();
        window_.ui_->LabelEsc->hide();
        Show();
        PointTo(Qt::ArrowCursor, Qt::IBeamCursor);
        // A whole second of quiet: the line is no sooner free, and the outcome can be read.
        window_.timer1_->start();
    }

    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

private:
    void Show()
    {
        window_.ui_->ListaTerminali->SetMuted(window_.running_);
        window_.RefreshAvailability();
        window_.RefreshNotice();
        window_.RefreshStrip();
    }

    // Fields, those of the windows over this one too, have a pointer of their own. The strip keeps
    // the arrow: there the pointer clears captions.
    void PointTo(Qt::CursorShape shape, Qt::CursorShape over_fields)
    {
        window_.setCursor(shape);
        window_.ui_->StrisciaStato->setCursor(Qt::ArrowCursor);
        for (QLineEdit* field : window_.findChildren<QLineEdit*>()) field->setCursor(over_fields);
    }

    Contenitore& window_;
    /// Of the start: behind a save another one is selected.
    const int terminal_;
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

void Contenitore::ShowWorkDone()
{
    ui_->LabelAvviso->clear();
    ui_->LabelEsc->hide();
}

// A caption that the pointer passes over is cleared: what it said is kept from when it was written.
void Contenitore::HearOutcome(const QString& caption)
{
    if (!running_ || caption.isEmpty()) return;
    heard_outcome_ = caption;
    ui_->PannelloComunicazione->SetBold(true);
}

void Contenitore::ShowLastOutcome(int terminal)
{
    const QString heard = std::exchange(heard_outcome_, {});
    const QString noted = std::exchange(noted_outcome_, {});
    const QString outcome = noted.isEmpty() ? heard : noted;
    if (outcome.isEmpty()) return;
    // What is hidden is not read out.
    ui_->LabelUltimoComando->show();
    // The task reads "Acquisizione in corso…".
    ui_->LabelUltimoComando->ShowLine(
        tr("%1 %2, terminale %3: %4")
            .arg(workstation_.clock.Time().toString(QStringLiteral("HH:mm:ss")),
                 task_.section(QLatin1String(" in corso"), 0, 0), QString::number(terminal),
                 outcome),
        OutcomeOf(outcome));
}

void Contenitore::ShowStartUpFailure(int error)
{
    const QString line = tr("Avvio non completato: errore %1").arg(error);
    ui_->LabelUltimoComando->ShowLine(line, OutcomeOf(line));
    RefreshStrip();
}

/// How the last command ended stands where a running one shows its attempts and the Escape key.
/// Once there is such a line the caption stands out only while a command writes it: behind one it
/// is that of the last exchange or of the clock read each second, and no longer the outcome.
void Contenitore::RefreshStrip()
{
    const bool ever_ended = !ui_->LabelUltimoComando->text().isEmpty();
    ui_->LabelUltimoComando->setVisible(ever_ended && !running_);
    ui_->PannelloTentativi->setVisible(!ever_ended || running_);
    ui_->PannelloComunicazione->SetBold(!ever_ended);
    const QString open = tr("Linea aperta sulla COM %1").arg(state_.SessionPort);
    ui_->Verde->setToolTip(open);
    ui_->Verde->setAccessibleDescription(open);
    ui_->cmdLogIn->setToolTip(LineIsOpen() ? tr("La linea è già aperta: richiama")
                                           : ui_->cmdLogIn->accessibleName());
}

void Contenitore::StartTimer1()
{
    timer1_ = new QTimer(this);
    timer1_->setObjectName(QStringLiteral("Timer1"));
    timer1_->setInterval(1000);
    connect(timer1_, &QTimer::timeout, this, &Contenitore::Timer1_Timer);
    timer1_->start();
}

void Contenitore::Timer1_Timer()
{
    if (!periodic_read_ || running_ || !isVisible() ||
        QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr)
        return;
    const std::chrono::milliseconds start = workstation_.clock.Monotonic();
    workstation_.unasked = true;
    periodic_read_();
    workstation_.unasked = false;
    // Ticks that came due meanwhile would follow each other, and the operator would never have a
    // turn.
    if (workstation_.clock.Monotonic() - start >= timer1_->intervalAsDuration()) timer1_->start();
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
        // Log-off stays: the open line may have been another terminal's.
        const bool of_inactive = button == ui_->cmdLogIn && !ui_->Abilitazione->isChecked();
        button->setEnabled(!running_ && !unavailable_.contains(button) && (selected || !of_line) &&
                           !of_inactive && (may_save_ || button != ui_->cmdAggiorna));
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
