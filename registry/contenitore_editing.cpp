#include "registry/contenitore.h"
#include "registry/database_error.h"
#include "registry/list_line.h"
#include "registry/numeric_value.h"
#include "registry/terminal_form.h"
#include "registry/terminal_row.h"
#include "registry/text_blanks.h"

#include "ui_contenitore.h"

#include <QSignalBlocker>

namespace orlo
{

namespace
{

/// A default goes only where nothing was chosen yet.
bool IsOpen(const QString& text)
{
    return text.isEmpty() || text == QLatin1String("0");
}

void Default(QLineEdit& field, const QString& value)
{
    if (!value.isEmpty() && IsOpen(field.text())) field.setText(value);
}

void Default(ChoiceBox& box, const QString& value)
{
    if (!value.isEmpty() && IsOpen(box.currentText())) box.Show(value);
}

}  // namespace

int Contenitore::SelectedTerminal() const
{
    return WholeNumberOrZero<std::int16_t>(ui_->ListaTerminali->CurrentLine().left(2));
}

TerminalRecord* Contenitore::SelectedSlot()
{
    const int n = SelectedTerminal();
    if (n < 1 || n > kTerminalSlots) return nullptr;
    return &state_.TerminalTable[static_cast<std::size_t>(n - 1)];
}

void Contenitore::ListaTerminali_Click()
{
    const QString caption = QStringLiteral("Terminale n°%1").arg(SelectedTerminal());
    // Counters, status and clock speak of the terminal named above them.
    if (caption != ui_->LabelTerminale->text()) EmptyTerminalPanels();
    RipulisceParametri();
    ui_->LabelTerminale->setText(caption);
    ui_->LabelModifiche->clear();
    TerminalRecord* slot = SelectedSlot();
    shown_.reset();
    may_save_ = slot != nullptr && slot->Attivo != kFalse;
    if (slot != nullptr) {
        const QSignalBlocker quietly(form_);
        TrimTexts(*slot);
        form_->LayOutFor(slot->Tipo);
        form_->Show(*slot);
        shown_ = form_->Read(*slot).record;
        const TerminalModel* model = ModelByCode(slot->Tipo);
        EnableObjectLinkControls(model == nullptr || model->family == LinkFamily::Object);
    }
    EnableByActivity(may_save_);
    RefreshClockTerminal();
    CheckModem_Click();
    RefreshAvailability();
}

void Contenitore::TrimTexts(TerminalRecord& slot)
{
    for (QString* text : {&slot.Descrizione, &slot.Modem, &slot.NomeCard})
        *text = WithoutBlanksAround(*text);
}

void Contenitore::EnableByActivity(bool active)
{
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->PannelloFunzioni, ui_->FrameAcquisizione, ui_->FrameFormatoBadge,
             ui_->CampoDescrizione, ui_->ComboTipoTerminale})
        control->setEnabled(active);
    RefreshNotice();
}

void Contenitore::Abilitazione_Click()
{
    const bool active = ui_->Abilitazione->isChecked();
    // An inactive terminal has neither mode nor function; a new active one starts with the first.
    form_->SetModalita(active ? 1 : 0);
    form_->SetFunzionamento(active ? 1 : 0);
    EnableByActivity(active);
    // Ticking off leaves the button as it is: how else would the change be saved?
    may_save_ = may_save_ || active;
    RefreshAvailability();
}

void Contenitore::CheckModem_Click()
{
    const bool modem = ui_->CheckModem->isChecked();
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->LabelTelefono, ui_->NumeroTelefono,
                                         ui_->LabelCodiceImpianto, ui_->CodiceImpianto})
        control->setEnabled(modem);
}

void Contenitore::ComboTipoTerminale_Click()
{
    const TerminalModel* model = ShownModel();
    if (model == nullptr) return;
    Default(*ui_->ComboVelocita, model->default_speed);
    Default(*ui_->Tentativi, model->default_retries);
    Default(*ui_->Priorita, model->default_priority);
    Default(*ui_->Priorita2, model->default_priority2);
    Default(*ui_->ComboRitardo, model->default_delay);
}

void Contenitore::ComboTipoTerminale_LostFocus()
{
    const TerminalModel* model = ShownModel();
    const bool serial = model != nullptr && model->family == LinkFamily::Serial;
    if (serial) {
        // Priorities and delay mean nothing to a terminal on the serial line. The bars follow.
        ui_->Priorita->setText(QStringLiteral("0"));
        ui_->Priorita2->setText(QStringLiteral("0"));
        ui_->ComboRitardo->Show(QStringLiteral("0"));
    }
    EnableObjectLinkControls(!serial);
}

void Contenitore::EnableObjectLinkControls(bool enabled)
{
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->LabelPriorita1, ui_->LabelPriorita2, ui_->LabelRitardo, ui_->Priorita,
             ui_->Priorita2, ui_->ComboRitardo, ui_->ScrollPriorita, ui_->ScrollPriorita2,
             ui_->FrameFunzionamento})
        control->setEnabled(enabled);
}

void Contenitore::ShowWhetherModified()
{
    const TerminalRecord* slot = SelectedSlot();
    if (slot == nullptr || !shown_) return;
    const EnteredTerminal entered = form_->Read(*slot);
    const bool modified = entered.misfit != nullptr || entered.record != *shown_;
    ui_->LabelModifiche->setText(modified ? tr("Modifiche non salvate") : QString());
}

void Contenitore::cmdAggiorna_Click()
{
    const TerminalRecord* slot = SelectedSlot();
    if (slot == nullptr) return;
    QLineEdit* misfit = nullptr;
    RunCommand(ui_->cmdAggiorna, tr("Salvataggio in corso…"), EscapeUse::Ignored, [&] {
        // Read when the focus has left the field that it was in: leaving it may change others.
        const EnteredTerminal entered = form_->Read(*slot);
        misfit = entered.misfit;
        const bool saved = misfit == nullptr ? SaveSelected(entered.record) : Refuse(*misfit);
        NoteOutcome(saved ? QStringLiteral("salvato nel registro") : QStringLiteral("non salvato"));
    });
    if (misfit == nullptr) return;
    misfit->setFocus();
    misfit->selectAll();
}

bool Contenitore::Refuse(const QLineEdit& misfit)
{
    // The line of a choice has no name of its own.
    const QString name = misfit.accessibleName().isEmpty() ? misfit.parentWidget()->accessibleName()
                                                           : misfit.accessibleName();
    workstation_.dialog.Tell(
        DialogIcon::Critical, QStringLiteral("Attenzione"),
        tr("Il numero scritto nel campo «%1» è troppo grande.").arg(name),
        tr("Il terminale non è stato salvato: correggere il campo e salvare di nuovo."));
    return false;
}

// The row is written first: when that fails, neither slot nor list has changed. A number without a
// row writes nothing and gives no message; the window edits terminals and never adds one. A row
// that was written and cannot be read again is shown as it was entered.
bool Contenitore::SaveSelected(const TerminalRecord& entered)
{
    const int n = SelectedTerminal();
    bool stored = false;
    try {
        if (jet::Recordset* cursor = state_.TerminalsRecordset.get()) {
            cursor->SetIndex(u"TERMINALE");
            cursor->Seek({std::int32_t{n}});
            stored = !cursor->NoMatch();
            if (stored) StoreTerminalRow(*cursor, entered);
        }
    } catch (const jet::Error& error) {
        ShowDatabaseError(workstation_.dialog, error);
        return false;
    }
    *SelectedSlot() = entered;
    // A terminal that is not active is asked for nothing, not for its clock either.
    if (entered.Attivo == kFalse && state_.CurrentTerminalNumber == n)
        state_.CurrentModel = nullptr;
    QString line = ListLine(n, entered, WithoutBlanksAround(entered.Descrizione));
    try {
        line = CostruzioneStringa(state_, n);
    } catch (const jet::Error& error) {
        ShowDatabaseError(workstation_.dialog, error);
    }
    ui_->ListaTerminali->MoveCurrentToEnd(line);
    return stored;
}

}  // namespace orlo
