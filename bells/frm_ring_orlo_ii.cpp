#include "bells/frm_ring_orlo_ii.h"

#include "bells/ring_line.h"
#include "bells/ring_marks.h"
#include "bells/ring_text.h"
#include "bells/week_days.h"
#include "registry/contenitore_controls.h"
#include "registry/database_error.h"
#include "registry/numeric_value.h"
#include "registry/widgets/form_style.h"

#include "ui_frm_ring_orlo_ii.h"

namespace orlo
{

namespace
{

constexpr int kDurationDigits = 2;

QString DurationDigits(int duration)
{
    return QStringLiteral("%1").arg(duration, kDurationDigits, 10, QLatin1Char('0'));
}

void Set(QRadioButton& button, bool checked)
{
    // An exclusive button cannot be unset by program.
    button.setAutoExclusive(false);
    button.setChecked(checked);
    button.setAutoExclusive(true);
}

}  // namespace

frmRingOrloII::frmRingOrloII(Contenitore& desk)
    : TerminalWindow(desk, *desk.Controls().cmdSuonerie), ui_(std::make_unique<Ui::frmRingOrloII>())
{
    ui_->setupUi(this);
    days_ = {ui_->Domenica, ui_->Lunedi,  ui_->Martedi, ui_->Mercoledi,
             ui_->Giovedi,  ui_->Venerdi, ui_->Sabato,  ui_->Festivo};
    QStringList headings;
    for (int day = 0; day < static_cast<int>(days_.size()); ++day) headings << ShortWeekDay(day);
    ui_->DisegnoSettimana->SetDays(static_cast<int>(days_.size()), headings);
    ui_->TempoRings->SetDigits(kDurationDigits);

    connect(ui_->ListaSuonerie, &QListWidget::currentRowChanged, this,
            &frmRingOrloII::ListaSuonerie_Click);
    connect(ui_->ListaSuonerie, &QListWidget::itemClicked, this,
            &frmRingOrloII::ListaSuonerie_Click);
    connect(ui_->DisegnoSettimana, &WeekDrawing::MarkChosen, this,
            [this](int, int row) { ui_->ListaSuonerie->setCurrentRow(row); });
    for (const CellField* field :
         std::initializer_list<const CellField*>{ui_->Ring, ui_->TempoRings}) {
        connect(field, &CellField::Left, this, &frmRingOrloII::CompleteFields);
        connect(field, &QLineEdit::textChanged, this, &frmRingOrloII::ShowWhetherModified);
        connect(field, &QLineEdit::textEdited, this, &frmRingOrloII::ForgetRefusal);
        connect(field, &CellField::Refused, this, &frmRingOrloII::ShowRefusal);
    }
    for (const QCheckBox* day : days_)
        connect(day, &QCheckBox::toggled, this, &frmRingOrloII::ShowWhetherModified);
    for (const QRadioButton* relay : {ui_->RelèA, ui_->RelèB})
        connect(relay, &QRadioButton::toggled, this, &frmRingOrloII::ShowWhetherModified);
    connect(ui_->cmdAggiorna, &QPushButton::clicked, this, &frmRingOrloII::cmdAggiorna_Click);
    connect(ui_->cmdReset, &QPushButton::clicked, this, &frmRingOrloII::cmdReset_Click);
    connect(ui_->cmdTrasmette, &QPushButton::clicked, this, &frmRingOrloII::cmdTrasmette_Click);
    connect(ui_->cmdUscita, &QPushButton::clicked, this, &QWidget::close);
    ShowOutcomeIn(*ui_->PannelloSuonerie);
}

frmRingOrloII::~frmRingOrloII() = default;

void frmRingOrloII::Form_Load()
{
    ui_->PannelloSuonerie->clear();
    ForgetRefusal();
    const bool loaded = CaricaSuonerie();
    // Behind a list that could not be loaded every ring of the terminal would be overwritten by an
    // empty one.
    for (QPushButton* button : {ui_->cmdAggiorna, ui_->cmdTrasmette}) button->setEnabled(loaded);
    ui_->ListaSuonerie->setCurrentRow(0);
    ListaSuonerie_Click();
    ui_->ListaSuonerie->setFocus();
}

/// Whether the list shows what the table holds; else the window says why, and no line has a ring.
bool frmRingOrloII::CaricaSuonerie()
{
    ui_->ListaSuonerie->SetLines(RingLines({}));
    jet::Database* const database = Desk().State().Database.get();
    if (database == nullptr) {
        ui_->PannelloSuonerie->setText(tr("Errore: il database non è aperto."));
        return false;
    }
    try {
        CreaTabellaSuonerie(*database);
        ui_->ListaSuonerie->SetLines(RingLines(LoadBellRows(*database, Terminal())));
        return true;
    } catch (const jet::Error& error) {
        ui_->PannelloSuonerie->setText(tr("Errore: la tabella delle suonerie non si può leggere."));
        ShowDatabaseError(Desk().Station().dialog, error);
        return false;
    }
}

void frmRingOrloII::DeriveLook()
{
    TerminalWindow::DeriveLook();
    ui_->Ring->DeriveRoom();
    ui_->TempoRings->DeriveRoom();
    ui_->ListaSuonerie->setFixedWidth(ui_->ListaSuonerie->sizeHint().width());
    NarrowRow(*ui_->disposizione_23, ui_->ScorrimentoSuonerie->Room().width(),
              {ui_->cmdReset, ui_->cmdTrasmette, ui_->cmdUscita});
}

void frmRingOrloII::ListaSuonerie_Click()
{
    const QListWidgetItem* const item = ui_->ListaSuonerie->currentItem();
    if (item == nullptr) return;
    ForgetRefusal();
    const BellRow row = CutRingLine(item->text());
    ui_->LabelSuoneria->setText(tr("Suoneria %1").arg(item->text().left(2)));
    ui_->Ring->setText(RingTimeText({row.Ora, row.Minuti}));
    ui_->TempoRings->setText(DurationDigits(row.TempoRele));
    for (std::size_t day = 0; day < days_.size(); ++day)
        days_.at(day)->setChecked(row.Giorni[static_cast<qsizetype>(day)] == u'1');
    // A new ring begins with relay A: without a relay it would never be heard.
    SetRelay(item->text() == EmptyRingLine(row.Locazione) ? 1 : row.NumeroRele);
    ShowWeek();
    SayUnsaved(QString());
}

void frmRingOrloII::SetRelay(int number)
{
    Set(*ui_->RelèA, number == 1);
    Set(*ui_->RelèB, number == 2);
}

BellRow frmRingOrloII::Entered() const
{
    BellRow row = CutRingLine(ui_->ListaSuonerie->currentItem()->text());
    // A stored time that is none of a day stays until another one is typed.
    const RingTime time = RingTimeOf(ui_->Ring->text()).value_or(RingTime{row.Ora, row.Minuti});
    row.Terminale = Terminal();
    row.Ora = time.hour;
    row.Minuti = time.minute;
    row.Giorni.clear();
    for (const QCheckBox* day : days_)
        row.Giorni += day->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    row.NumeroRele = ui_->RelèA->isChecked() ? 1 : ui_->RelèB->isChecked() ? 2 : 0;
    row.TempoRele = ui_->TempoRings->text().toInt();
    return row;
}

/// Shows what was typed with all its digits.
void frmRingOrloII::CompleteFields()
{
    const BellRow row = Entered();
    ui_->Ring->setText(RingTimeText({row.Ora, row.Minuti}));
    ui_->TempoRings->setText(DurationDigits(row.TempoRele));
}

/// In the place of the outcome, until something else is typed.
void frmRingOrloII::ShowRefusal(const QString& why)
{
    ui_->PannelloSuonerie->clear();
    ui_->PannelloSuonerie->SetRemark(why);
}

void frmRingOrloII::ForgetRefusal()
{
    ui_->PannelloSuonerie->SetRemark(QString());
}

void frmRingOrloII::ShowWhetherModified()
{
    const QListWidgetItem* const item = ui_->ListaSuonerie->currentItem();
    if (item == nullptr) return;
    BellRow entered = Entered();
    entered.Terminale = 0;
    const BellRow shown = CutRingLine(item->text());
    // The relay of a new ring is not the operator's.
    if (item->text() == EmptyRingLine(shown.Locazione) && entered.NumeroRele == 1)
        entered.NumeroRele = 0;
    SayUnsaved(entered == shown ? QString() : tr("Modifiche non salvate"));
}

/// What is not saved is not sent: saving is the filled button then.
void frmRingOrloII::SayUnsaved(const QString& remark)
{
    const bool flips = remark.isEmpty() != ui_->LabelModifiche->Remark().isEmpty();
    ui_->LabelModifiche->SetRemark(remark);
    if (!flips) return;
    ui_->cmdAggiorna->setProperty("primario", !remark.isEmpty());
    ui_->cmdTrasmette->setProperty("primario", remark.isEmpty());
    DeriveLook();
}

void frmRingOrloII::ShowWeek()
{
    ui_->DisegnoSettimana->Show(
        MarksOfLines(ui_->ListaSuonerie->Lines(), ui_->ListaSuonerie->currentRow()));
}

void frmRingOrloII::RunBehind(QPushButton* button, const QString& task,
                              const std::function<void()>& work)
{
    button->setFocus();
    ForgetRefusal();
    Run(task, EscapeUse::Ignored, *ui_->DisegnoSettimana, work);
}

void frmRingOrloII::cmdAggiorna_Click()
{
    RunBehind(ui_->cmdAggiorna, tr("Salvataggio in corso…"), [this] {
        CompleteFields();
        const BellRow row = Entered();
        try {
            StoreBellRow(*Desk().State().Database, row);
        } catch (const jet::Error& error) {
            ShowDatabaseError(Desk().Station().dialog, error);
            Desk().NoteOutcome(QStringLiteral("non salvata"));
            return;
        }
        Desk().NoteOutcome(QStringLiteral("suoneria salvata"));
        // What was sent is no longer what the list shows.
        ui_->PannelloSuonerie->clear();
        // Sending reads the list.
        ui_->ListaSuonerie->SetLine(ui_->ListaSuonerie->currentRow(), RingLine(row));
        ListaSuonerie_Click();
    });
}

void frmRingOrloII::cmdTrasmette_Click()
{
    RunBehind(ui_->cmdTrasmette, tr("Invio suonerie in corso…"), [this] {
        const TerminalModel* const model = Desk().ShownModel();
        if (model == nullptr || !Desk().PrepareCurrentTerminal()) return;
        ClearOutcome(*ui_->PannelloSuonerie);
        const BellOutcome sent =
            SendRings(Desk(), model->bell_telegram, ui_->ListaSuonerie->Lines());
        const bool unsaved = !ui_->LabelModifiche->Remark().isEmpty();
        ShowOutcome(sent, unsaved ? tr(", senza le modifiche non salvate") : QString());
        if (unsaved) SayUnsaved(tr("Modifiche non salvate, non inviate"));
    });
}

/// `besides` is for the line of the last command, where the list with its remark is not seen.
void frmRingOrloII::ShowOutcome(const BellOutcome& outcome, const QString& besides)
{
    ui_->PannelloSuonerie->ShowNoted(outcome.status, outcome.note);
    // The caption says the number of the line that was answered last.
    Desk().NoteOutcome(ui_->PannelloSuonerie->Caption() + besides);
}

/// The rows of the table stay: the window shows them again when it is opened.
void frmRingOrloII::cmdReset_Click()
{
    RunBehind(ui_->cmdReset, tr("Azzeramento suonerie in corso…"), [this] {
        if (!Desk().Station().dialog.AskYesNo(DialogIcon::Critical, QStringLiteral("Attenzione"),
                                              QStringLiteral("Si desidera azzerare le suonerie?")))
            return;
        ClearOutcome(*ui_->PannelloSuonerie);
        if (Desk().PrepareCurrentTerminal()) ShowOutcome(ClearRings(Desk()));
        // Whatever the terminal answered: an answer may be lost behind a reset that was made.
        EmptyList();
    });
}

void frmRingOrloII::EmptyList()
{
    for (int row = 0; row < ui_->ListaSuonerie->count(); ++row)
        ui_->ListaSuonerie->SetLine(
            row, EmptyRingLine(ui_->ListaSuonerie->item(row)->text().left(2).toInt()));
    ListaSuonerie_Click();
}

}  // namespace orlo
