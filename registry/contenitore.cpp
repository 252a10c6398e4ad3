#include "registry/contenitore.h"

#include "registry/clock_difference.h"
#include "registry/held_line.h"
#include "registry/numeric_value.h"
#include "registry/terminal_form.h"
#include "registry/text_blanks.h"
#include "registry/widgets/form_style.h"

#include "ui_contenitore.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QSignalBlocker>

namespace orlo
{

Contenitore::Contenitore(ProgramState& state, Workstation& workstation, QWidget* parent)
    : QWidget(parent),
      state_(state),
      workstation_(workstation),
      ui_(std::make_unique<Ui::Contenitore>())
{
    ui_->setupUi(this);
    form_ = new TerminalForm(*ui_, this);
    commands_ = {
        ui_->cmdAcquisisce, ui_->cmdSfoglia,       ui_->cmdLeggeOra,          ui_->cmdSincro,
        ui_->cmdTest,       ui_->cmdSuonerie,      ui_->cmdMonitorTimbrature, ui_->cmdComandi,
        ui_->cmdRiceveCard, ui_->cmdTrasmetteCard, ui_->cmdAggiorna,          ui_->cmdLogIn,
        ui_->cmdLogOff,     ui_->cmdUscita};
    unavailable_ = {
        ui_->cmdLeggeOra, ui_->cmdSincro,  ui_->cmdTest,       ui_->cmdMonitorTimbrature,
        ui_->cmdSuonerie, ui_->cmdComandi, ui_->cmdRiceveCard, ui_->cmdTrasmetteCard,
        ui_->cmdLogIn,    ui_->cmdLogOff};
    for (QAbstractButton* button : commands_)
        if (button->toolTip().isEmpty()) button->setToolTip(button->accessibleName());
    ui_->Verde->hide();
    ui_->Rosso->hide();
    ui_->LabelEsc->hide();
    ui_->LabelUltimoComando->SetBold(false);
    ui_->LabelModifiche->SetBold(false);
    RefreshStrip();
    ConnectControls();
    ConnectPanels();
    StartTimer1();
    DeriveLook();
    resize(size().boundedTo(RoomOnScreen(*this)));
    RipulisceParametri();
    RefreshAvailability();
}

Contenitore::~Contenitore() = default;

void Contenitore::ConnectControls()
{
    connect(ui_->ListaTerminali, &RegisterList::LineChosen, this,
            &Contenitore::ListaTerminali_Click);
    connect(ui_->ComboTipoTerminale, &QComboBox::activated, this,
            &Contenitore::ComboTipoTerminale_Click);
    connect(ui_->ComboTipoTerminale, &ChoiceBox::Left, this,
            &Contenitore::ComboTipoTerminale_LostFocus);
    // clicked, not toggled: showing a terminal must not set or clear its options.
    connect(ui_->Abilitazione, &QAbstractButton::clicked, this, &Contenitore::Abilitazione_Click);
    connect(ui_->CheckModem, &QAbstractButton::clicked, this, &Contenitore::CheckModem_Click);
    connect(ui_->cmdAggiorna, &QAbstractButton::clicked, this, &Contenitore::cmdAggiorna_Click);
    connect(ui_->cmdSfoglia, &QAbstractButton::clicked, this, &Contenitore::cmdSfoglia_Click);
    connect(ui_->cmdUscita, &QAbstractButton::clicked, this, &QWidget::close);
    connect(form_, &TerminalForm::Changed, this, &Contenitore::ShowWhetherModified);
}

void Contenitore::ConnectPanels()
{
    for (TextPanel* panel : std::initializer_list<TextPanel*>{
             ui_->PannelloCapacita, ui_->PannelloTimbrature, ui_->PannelloAcquisire})
        connect(panel, &TextPanel::TextChanged, this, &Contenitore::RefreshGauge);
    connect(ui_->ComboTipoTerminale, &QComboBox::currentTextChanged, this,
            &Contenitore::RefreshGauge);
    connect(ui_->ComboTipoTerminale, &QComboBox::currentTextChanged, this,
            &Contenitore::RefreshBadge);
    // The same refusal twice in a row is an outcome each time.
    for (const auto written : {&TextPanel::TextChanged, &TextPanel::TextRepeated})
        connect(ui_->PannelloComunicazione, written, this, &Contenitore::HearOutcome);
    for (TextPanel* panel :
         std::initializer_list<TextPanel*>{ui_->OraTerminale, ui_->DataTerminale, ui_->Sistema})
        connect(panel, &TextPanel::TextChanged, this, &Contenitore::RefreshClockDifference);
    for (QLineEdit* field : {ui_->InizioImpianto, ui_->LenImpianto, ui_->InizioAzienda,
                             ui_->LenAzienda, ui_->InizioBadge, ui_->LenBadge, ui_->LenCard})
        connect(field, &QLineEdit::textChanged, this, &Contenitore::RefreshBadge);
    for (QWidget* caption :
         std::initializer_list<QWidget*>{ui_->PannelloComunicazione, ui_->PannelloTentativi}) {
        caption->setMouseTracking(true);
        caption->installEventFilter(this);
    }
}

void Contenitore::CaricaComboRitardo()
{
    ui_->ComboRitardo->clear();
    for (const char* text : {"0", ",1", ",2", ",3", ",4", ",5", ",6", ",7", ",8", ",9"})
        ui_->ComboRitardo->addItem(QLatin1String(text));
    ui_->ComboRitardo->Show(QString());
}

void Contenitore::CaricaComboTipoTerminale()
{
    using T = TerminalType;
    ui_->ComboTipoTerminale->clear();
    for (const T type :
         {T::OrloII, T::OrloTre, T::SuperStrale, T::StraleN, T::Lumo, T::Orlo, T::Sipa, T::Strale})
        ui_->ComboTipoTerminale->addItem(ModelByCode(static_cast<int>(type))->name);
    ui_->ComboTipoTerminale->Show(QString());
}

void Contenitore::CaricaComboPorta()
{
    ui_->ComboPorta->clear();
    for (const char* text : {"Com 1", "Com 2", "Com 3", "Com 4"})
        ui_->ComboPorta->addItem(QLatin1String(text));
    ui_->ComboPorta->Show(QString());
}

void Contenitore::CaricaComboVelocita()
{
    ui_->ComboVelocita->clear();
    for (const char* text : {"1200", "2400", "4800", "9600", "14400", "19200", "38400"})
        ui_->ComboVelocita->addItem(QLatin1String(text));
    ui_->ComboVelocita->Show(QString());
}

void Contenitore::AddTerminalLine(const QString& line)
{
    ui_->ListaTerminali->AddLine(line);
}

void Contenitore::SelectTerminalLine(int position)
{
    ui_->ListaTerminali->Choose(position);
}

void Contenitore::RipulisceParametri()
{
    const QSignalBlocker quietly(form_);
    form_->Empty();
}

void Contenitore::AzzeraLabel()
{
    ui_->PannelloComunicazione->clear();
    ui_->PannelloTentativi->clear();
    ui_->PanelTentativi->clear();
    EmptyTerminalPanels();
}

void Contenitore::EmptyTerminalPanels()
{
    for (TextPanel* panel : std::initializer_list<TextPanel*>{
             ui_->PannelloCapacita, ui_->PannelloTimbrature, ui_->PannelloFree,
             ui_->PannelloAcquisire, ui_->PannelloStato, ui_->PannelloVersione})
        panel->clear();
    EmptyClockDisplays();
}

void Contenitore::EmptyClockDisplays()
{
    for (TextPanel* panel :
         std::initializer_list<TextPanel*>{ui_->OraTerminale, ui_->DataTerminale, ui_->Sistema})
        panel->clear();
    NameClockTerminal(0);
}

void Contenitore::NameClockTerminal(int terminal)
{
    clock_terminal_ = terminal;
    RefreshClockTerminal();
}

void Contenitore::RefreshClockTerminal()
{
    const bool another = clock_terminal_ != 0 && clock_terminal_ != SelectedTerminal();
    QFont font;
    font.setBold(another);
    ui_->LabelOrologio->setFont(font);
    ui_->LabelOrologio->setText(clock_terminal_ == 0 ? tr("Terminale:")
                                                     : tr("Terminale %1:").arg(clock_terminal_));
    ui_->LabelOrologio->setToolTip(
        another ? tr("È l'orologio dell'ultimo terminale con cui si è parlato, non di quello "
                     "scelto nel registro.")
                : QString());
}

bool Contenitore::PrepareCurrentTerminal()
{
    ui_->PannelloStato->clear();
    ui_->PannelloVersione->clear();
    ClosePortLeftOpen(*this);
    // Whatever is read from now on is this terminal's.
    if (clock_terminal_ != SelectedTerminal()) EmptyClockDisplays();
    // A silent terminal leaves the window without a turn: the outcome of the command before would
    // stand there meanwhile.
    workstation_.clock.ProcessPendingEvents();
    state_.CurrentModel = ShownModel();
    state_.CurrentPort = PortOf(ui_->ComboPorta->currentText());
    state_.CurrentSpeed = WholeNumberOrZero<std::int32_t>(ui_->ComboVelocita->currentText());
    state_.CurrentTerminalNumber = static_cast<std::int16_t>(SelectedTerminal());
    state_.CurrentRetries = WholeNumberOrZero<std::int16_t>(ui_->Tentativi->text());
    state_.CurrentPriority = WholeNumberOrZero<std::int16_t>(ui_->Priorita->text());
    state_.CurrentPriority2 = WholeNumberOrZero<std::int16_t>(ui_->Priorita2->text());
    state_.CurrentModem = ui_->CheckModem->isChecked();
    state_.CurrentPhoneNumber = WithoutBlanksAround(ui_->NumeroTelefono->text());
    state_.CurrentPlantCode = WithoutBlanksAround(ui_->CodiceImpianto->text());
    const TerminalModel* const model = ShownModel();
    // On the serial line the command opens the port itself.
    return model == nullptr || model->family == LinkFamily::Serial || PrepareComponent(*model);
}

const TerminalModel* Contenitore::ShownModel() const
{
    return ModelByName(ui_->ComboTipoTerminale->currentText());
}

bool Contenitore::LineIsOpen() const
{
    return !ui_->Verde->isHidden();
}

void Contenitore::ShowRemark(const QString& text)
{
    ui_->PannelloComunicazione->SetRemark(text);
}

bool Contenitore::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove) {
        if (watched == ui_->PannelloComunicazione)
            ui_->PannelloComunicazione->clear();
        else if (watched == ui_->PannelloTentativi)
            ui_->PannelloTentativi->clear();
    }
    return QWidget::eventFilter(watched, event);
}

void Contenitore::cmdSfoglia_Click()
{
    QFileDialog dialog(this, tr("File a cui aggiungere le timbrature"), QString(),
                       tr("File di testo (*.TXT *.txt);;Tutti i file (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // Punches are appended: choosing an existing file overwrites nothing, and a new one is no save.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setLabelText(QFileDialog::Accept, tr("Scegli"));
    const QFileInfo file(ui_->NomeFile->text());
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
    if (dialog.exec() == QDialog::Accepted)
        ui_->NomeFile->setText(dialog.selectedFiles().constFirst());
}

void Contenitore::RefreshGauge()
{
    const TerminalModel* model = ShownModel();
    ui_->MisuratoreMemoria->Show(MemoryPartsOf(
        model != nullptr ? model->family : LinkFamily::Serial, ui_->PannelloCapacita->text(),
        ui_->PannelloTimbrature->text(), ui_->PannelloAcquisire->text()));
}

void Contenitore::RefreshBadge()
{
    const auto number = [](const QLineEdit* field) {
        return static_cast<int>(WholeNumberOrZero<std::int16_t>(field->text()));
    };
    BadgeLayout layout;
    layout.plant = {number(ui_->InizioImpianto), number(ui_->LenImpianto)};
    layout.badge = {number(ui_->InizioBadge), number(ui_->LenBadge)};
    // A serial terminal has neither of them, whatever its row holds.
    const TerminalModel* const model = ShownModel();
    if (model == nullptr || model->family == LinkFamily::Object) {
        layout.company = {number(ui_->InizioAzienda), number(ui_->LenAzienda)};
        layout.length = number(ui_->LenCard);
    }
    ui_->DisegnoBadge->Show(layout);
}

void Contenitore::RefreshClockDifference()
{
    ui_->LabelScarto->setText(ClockDifference(ui_->OraTerminale->text(), ui_->DataTerminale->text(),
                                              ui_->Sistema->text()));
}

}  // namespace orlo
