#include "registry/terminal_form.h"

#include "registry/numeric_value.h"
#include "registry/terminal_type.h"

#include "ui_contenitore.h"

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

constexpr int kObjectNameCardLimit = 20;
constexpr int kSerialNameCardLimit = 12;

QString Padded(const QLineEdit& field, int width)
{
    return field.text().leftJustified(width, u' ', /*truncate=*/true);
}

std::int16_t Flag(bool ticked)
{
    return ticked ? kTrue : kFalse;
}

void SetOption(const std::array<QRadioButton*, 3>& options, int value)
{
    for (int i = 0; i < static_cast<int>(options.size()); ++i) {
        QRadioButton& button = *options[static_cast<std::size_t>(i)];
        // An exclusive button cannot be unset by program.
        button.setAutoExclusive(false);
        button.setChecked(i == value - 1);
        button.setAutoExclusive(true);
    }
}

std::int16_t OptionValue(const std::array<QRadioButton*, 3>& options)
{
    for (std::size_t i = 0; i < options.size(); ++i)
        if (options[i]->isChecked()) return static_cast<std::int16_t>(i + 1);
    return 0;
}

int LastDigit(const QString& text)
{
    return text.isEmpty() ? 0 : WholeNumberOrZero<int>(text.right(1));
}

}  // namespace

TerminalForm::TerminalForm(const Ui::Contenitore& ui, QObject* parent)
    : QObject(parent),
      ui_(ui),
      numbers_{{ui.Priorita, &TerminalRecord::Priorita},
               {ui.Priorita2, &TerminalRecord::PrioritaSecondaria},
               {ui.Tentativi, &TerminalRecord::Tentativi},
               {ui.CodiceImpianto, &TerminalRecord::Impianto},
               {ui.InizioImpianto, &TerminalRecord::InizioImpianto},
               {ui.LenImpianto, &TerminalRecord::LenImpianto},
               {ui.InizioBadge, &TerminalRecord::InizioBadge},
               {ui.LenBadge, &TerminalRecord::LenBadge},
               {ui.InizioAzienda, &TerminalRecord::InizioAzienda},
               {ui.LenAzienda, &TerminalRecord::LenAzienda},
               {ui.LenCard, &TerminalRecord::LenCard}},
      modalita_{ui.Modalita_0, ui.Modalita_1, ui.Modalita_2},
      funzionamento_{ui.Funzionamento_0, ui.Funzionamento_1, ui.Funzionamento_2}
{
    ui_.ScrollPriorita->Drive(ui_.Priorita);
    ui_.ScrollPriorita2->Drive(ui_.Priorita2);
    ui_.ScrollTentativi->Drive(ui_.Tentativi);
    ui_.CampoDescrizione->setMaxLength(kDescriptionWidth);
    ui_.NumeroTelefono->setMaxLength(kPhoneWidth);
    WatchControls();
}

void TerminalForm::WatchControls()
{
    for (QLineEdit* field : {ui_.CampoDescrizione, ui_.NumeroTelefono, ui_.NomeCard})
        connect(field, &QLineEdit::textChanged, this, &TerminalForm::Changed);
    for (const NumberField& number : numbers_)
        connect(number.field, &QLineEdit::textChanged, this, &TerminalForm::Changed);
    for (QComboBox* box :
         {ui_.ComboTipoTerminale, ui_.ComboPorta, ui_.ComboVelocita, ui_.ComboRitardo})
        connect(box, &QComboBox::currentTextChanged, this, &TerminalForm::Changed);
    for (QCheckBox* tick : {ui_.Abilitazione, ui_.CheckModem, ui_.BidirectionalCheck})
        connect(tick, &QCheckBox::toggled, this, &TerminalForm::Changed);
    for (const Options& options : {modalita_, funzionamento_})
        for (QRadioButton* button : options)
            connect(button, &QRadioButton::toggled, this, &TerminalForm::Changed);
}

void TerminalForm::Empty()
{
    for (QLineEdit* field : {ui_.CampoDescrizione, ui_.NumeroTelefono, ui_.NomeCard})
        field->clear();
    for (const NumberField& number : numbers_) number.field->clear();
    for (ChoiceBox* box :
         {ui_.ComboTipoTerminale, ui_.ComboPorta, ui_.ComboVelocita, ui_.ComboRitardo})
        box->Show(QString());
    for (QCheckBox* tick : {ui_.Abilitazione, ui_.CheckModem, ui_.BidirectionalCheck})
        tick->setChecked(false);
    SetModalita(0);
    SetFunzionamento(0);
}

void TerminalForm::Show(const TerminalRecord& slot)
{
    const TerminalModel* model = ModelByCode(slot.Tipo);
    ui_.Abilitazione->setChecked(slot.Attivo != kFalse);
    ui_.CampoDescrizione->setText(slot.Descrizione);
    ui_.ComboTipoTerminale->Show(model != nullptr ? model->name : QString());
    SetModalita(slot.Modalita);
    SetFunzionamento(slot.Funzionamento);
    ui_.ComboPorta->Show(QStringLiteral("Com %1").arg(slot.Porta));
    ui_.ComboVelocita->Show(QString::number(slot.Velocita));
    ui_.ComboRitardo->Show(DelayText(slot.Ritardo));
    ui_.CheckModem->setChecked(slot.AbilitazioneModem != kFalse);
    ui_.NumeroTelefono->setText(slot.Modem);
    ui_.NomeCard->setText(slot.NomeCard);
    ui_.BidirectionalCheck->setChecked(slot.Bidirezionale != kFalse);
    for (const NumberField& number : numbers_)
        number.field->setText(QString::number(slot.*number.value));
}

EnteredTerminal TerminalForm::Read(const TerminalRecord& slot) const
{
    EnteredTerminal entered{slot};
    TerminalRecord& record = entered.record;
    if (const TerminalModel* model = ModelByName(ui_.ComboTipoTerminale->currentText()))
        record.Tipo = static_cast<std::int16_t>(model->type);
    record.Funzionamento = OptionValue(funzionamento_);
    record.Descrizione = Padded(*ui_.CampoDescrizione, kDescriptionWidth);
    record.Attivo = Flag(ui_.Abilitazione->isChecked());
    record.Modalita = OptionValue(modalita_);
    record.Porta = PortOf(ui_.ComboPorta->currentText());
    record.Ritardo = DelayOf(ui_.ComboRitardo->currentText());
    record.Modem = Padded(*ui_.NumeroTelefono, kPhoneWidth);
    record.AbilitazioneModem = Flag(ui_.CheckModem->isChecked());
    record.NomeCard = Padded(*ui_.NomeCard, kCardNameWidth);
    record.Bidirezionale = Flag(ui_.BidirectionalCheck->isChecked());

    const auto speed = WholeNumber<std::int32_t>(ui_.ComboVelocita->currentText());
    record.Velocita = speed.value_or(0);
    if (!speed) entered.misfit = ui_.ComboVelocita->lineEdit();
    for (const NumberField& number : numbers_) {
        const auto value = WholeNumber<std::int16_t>(number.field->text());
        record.*number.value = value.value_or(std::int16_t{0});
        if (!value && entered.misfit == nullptr) entered.misfit = number.field;
    }
    return entered;
}

void TerminalForm::LayOutFor(int type_code)
{
    const TerminalModel* model = ModelByCode(type_code);
    if (model == nullptr) return;
    const bool object = model->family == LinkFamily::Object;
    // The fields go with their captions; their values stay, because saving writes them.
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_.LabelPriorita1, ui_.LabelPriorita2, ui_.LabelRitardo, ui_.Priorita, ui_.Priorita2,
             ui_.ComboRitardo, ui_.ScrollPriorita, ui_.ScrollPriorita2, ui_.FrameFunzionamento,
             ui_.LabelLenCard, ui_.LenCard, ui_.BidirectionalCheck, ui_.LabelAzienda,
             ui_.InizioAzienda, ui_.LenAzienda})
        control->setVisible(object);
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_.PannelloFree, ui_.LabelFree, ui_.CampioneLibere})
        control->setEnabled(object);
    ui_.LabelTimbrature->show();
    ui_.LabelTimbrature->setText(object ? QStringLiteral("Timbrature Flaggate:")
                                        : QStringLiteral("Timbrature In Memoria:"));
    ui_.LabelNomeCard->setText(object ? QStringLiteral("Nome:") : QStringLiteral("Cod.Impianto:"));
    ui_.NomeCard->setAccessibleName(object ? QStringLiteral("Nome del formato badge")
                                           : QStringLiteral("Codice impianto del badge"));
    // A stored name that is longer than the limit is shown cut.
    ui_.NomeCard->setMaxLength(object ? kObjectNameCardLimit : kSerialNameCardLimit);
    if (object) {
        ui_.LabelImpianto->show();
        ui_.cmdMonitorTimbrature->show();
    }
}

void TerminalForm::SetModalita(int value)
{
    SetOption(modalita_, value);
}

void TerminalForm::SetFunzionamento(int value)
{
    SetOption(funzionamento_, value);
}

QString DelayText(float seconds)
{
    const long tenths =
        std::isfinite(seconds) ? std::lround(std::clamp(seconds * 10.0F, 0.0F, 9.0F)) : 0;
    return tenths == 0 ? QStringLiteral("0") : QStringLiteral(",%1").arg(tenths);
}

float DelayOf(const QString& text)
{
    return static_cast<float>(LastDigit(text)) / 10.0F;
}

std::int16_t PortOf(const QString& text)
{
    return static_cast<std::int16_t>(LastDigit(text));
}

}  // namespace orlo
