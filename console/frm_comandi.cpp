#include "console/frm_comandi.h"

#include "console/visible_text.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/widgets/fixed_font.h"
#include "registry/widgets/form_style.h"
#include "registry/windows_1252.h"

#include "ui_frm_comandi.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <algorithm>

namespace orlo
{

namespace
{

/// The first character that is not sent, empty when all are. A control character, which only
/// pasting brings into a field, nobody sees there; a CR would end the telegram before its checksum
/// and what follows would be a second one.
QString FirstNotSent(const QString& text)
{
    const auto control = std::find_if(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control;
    });
    return control != text.end() ? QString(*control) : FirstOutsideWindows1252(text);
}

}  // namespace

FrmComandi::FrmComandi(Contenitore& desk)
    : TerminalWindow(desk, *desk.Controls().cmdComandi), ui_(std::make_unique<Ui::FrmComandi>())
{
    ui_->setupUi(this);
    // Twice as far from what follows as a label is from its field.
    ui_->LabelTitolo->setContentsMargins(0, 0, 0, ui_->disposizione_2->verticalSpacing());
    ShowOutcomeIn(*ui_->EsitoComando);
    connect(ui_->CommandField, &QLineEdit::textChanged, this, &FrmComandi::CommandField_Change);
    connect(ui_->cmdTrasmetteComando, &QPushButton::clicked, this,
            &FrmComandi::cmdTrasmetteComando_Click);
    connect(ui_->cmdCopia, &QPushButton::clicked, this, &FrmComandi::cmdCopia_Click);
    connect(ui_->cmdUscita, &QPushButton::clicked, this, &QWidget::close);
    for (TextPanel* panel :
         std::initializer_list<TextPanel*>{ui_->ReceivedDataLabel, ui_->ReceveidCommand})
        connect(panel, &TextPanel::TextChanged, this, &FrmComandi::OfferCopy);
    OfferCopy();
    for (QLineEdit* field : {ui_->CommandField, ui_->DataField}) field->installEventFilter(this);
}

FrmComandi::~FrmComandi() = default;

void FrmComandi::Form_Load()
{
    const TerminalModel* const model = Desk().ShownModel();
    const bool object_driven = model != nullptr && model->family == LinkFamily::Object;
    for (QWidget* control : std::initializer_list<QWidget*>{
             ui_->labelParametri, ui_->DataField, ui_->LabelComando, ui_->ReceveidCommand})
        control->setVisible(object_driven);
    // Alt+C leads to the command, from the title where the label does not show.
    ui_->LabelTitolo->setText(object_driven ? tr("Comando da inviare") : tr("&Comando da inviare"));
    // The command takes the room of the parameters that are not there, and of the gap before them.
    ui_->disposizione_2->addWidget(ui_->CommandField, 2, 0, 1, object_driven ? 1 : 2);
    ui_->CommandField->clear();
    ui_->DataField->clear();
    CommandField_Change();
    ui_->CommandField->setFocus();
}

void FrmComandi::CommandField_Change()
{
    ui_->ReceivedDataLabel->clear();
    ui_->ReceveidCommand->clear();
    ui_->EsitoComando->clear();
}

void FrmComandi::cmdTrasmetteComando_Click()
{
    CommandField_Change();
    ClearOutcome(*ui_->EsitoComando);
    const TypedCommand typed = Typed();
    const QString refused = FirstNotSent(typed.command + typed.parameters);
    refused.isEmpty() ? history_.Add(typed) : history_.Restart();
    // A refusal is how the command ended, too.
    Run(tr("Comando in corso…"), EscapeUse::Ignored, *ui_->ReceivedDataLabel,
        [&] { refused.isEmpty() ? SendCommand(typed) : Refuse(refused); });
    // The next command replaces the one that was sent; a refused one is put right.
    if (refused.isEmpty()) ui_->CommandField->selectAll();
}

// Its name too: there are characters that nobody sees, or that look like another.
void FrmComandi::Refuse(const QString& character)
{
    Desk().Controls().PannelloComunicazione->setText(
        tr("Errore: il carattere \"%1\" (U+%2) non può essere inviato.")
            .arg(VisibleText(character), QString::number(character.toUcs4().constFirst(), 16)
                                             .toUpper()
                                             .rightJustified(4, u'0')));
}

void FrmComandi::SendCommand(const TypedCommand& typed)
{
    if (Desk().PrepareCurrentTerminal())
        ShowAnswer(InviaComando(Desk(), ToWindows1252(typed.command).toStdString(),
                                ToWindows1252(typed.parameters).toStdString()));
    Desk().HangUpBehindCommand();
}

void FrmComandi::ShowAnswer(const CommandAnswer& answer)
{
    ui_->ReceivedDataLabel->setText(VisibleText(answer.received_data));
    if (answer.received_command.empty()) return;
    ui_->ReceveidCommand->setText(ComponentText(answer.received_command));
    Desk().NoteOutcome(ui_->ReceveidCommand->text());
}

void FrmComandi::OfferCopy()
{
    ui_->cmdCopia->setEnabled(!ui_->ReceivedDataLabel->text().isEmpty() ||
                              !ui_->ReceveidCommand->text().isEmpty());
}

// A refusal without data is its code.
void FrmComandi::cmdCopia_Click()
{
    if (ui_->ReceivedDataLabel->text().isEmpty())
        QApplication::clipboard()->setText(ui_->ReceveidCommand->text());
    else
        ui_->ReceivedDataLabel->CopyAll();
}

TypedCommand FrmComandi::Typed() const
{
    return {.command = ui_->CommandField->text(), .parameters = ui_->DataField->text()};
}

void FrmComandi::Recall(const TypedCommand& command)
{
    ui_->CommandField->setText(command.command);
    ui_->DataField->setText(command.parameters);
}

bool FrmComandi::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up) Recall(history_.Older(Typed()));
        if (key == Qt::Key_Down) Recall(history_.Newer(Typed()));
        if (key == Qt::Key_Up || key == Qt::Key_Down) return true;
    }
    return TerminalWindow::eventFilter(watched, event);
}

void FrmComandi::DeriveLook()
{
    TerminalWindow::DeriveLook();
    MakeEquallyWide({ui_->cmdTrasmetteComando, ui_->cmdUscita});
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->CommandField, ui_->DataField, ui_->ReceivedDataLabel})
        control->setFont(FixedFont(font()));
    setMinimumWidth(60 * fontMetrics().averageCharWidth());
}

}  // namespace orlo
