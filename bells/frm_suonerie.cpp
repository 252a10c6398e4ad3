#include "bells/frm_suonerie.h"

#include "bells/object_rings.h"
#include "bells/ring_marks.h"
#include "bells/ring_text.h"
#include "bells/sort_suonerie.h"
#include "bells/week_days.h"
#include "registry/captions.h"
#include "registry/contenitore_controls.h"
#include "registry/widgets/form_style.h"

#include "ui_frm_suonerie.h"

#include <QApplication>
#include <QButtonGroup>

#include <algorithm>

namespace orlo
{

namespace
{
constexpr int kPercentageWidth = 120;
}

FrmSuonerie::FrmSuonerie(Contenitore& desk)
    : TerminalWindow(desk, *desk.Controls().cmdSuonerie),
      ui_(std::make_unique<Ui::FrmSuonerie>()),
      days_(new QButtonGroup(this))
{
    ui_->setupUi(this);
    int day = 0;
    for (QRadioButton* button : {ui_->Giorno_0, ui_->Giorno_1, ui_->Giorno_2, ui_->Giorno_3,
                                 ui_->Giorno_4, ui_->Giorno_5, ui_->Giorno_6})
        days_->addButton(button, day++);
    connect(days_, &QButtonGroup::idToggled, this, [this](int toggled, bool checked) {
        if (checked) Giorno_Click(toggled);
    });
    connect(ui_->cmdRiceveSuonerie, &QPushButton::clicked, this,
            &FrmSuonerie::cmdRiceveSuonerie_Click);
    connect(ui_->cmdTrasmetteSuonerie, &QPushButton::clicked, this,
            &FrmSuonerie::cmdTrasmetteSuonerie_Click);
    connect(ui_->cmdUscita, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->SuonerieDelGiorno, &DayRings::RingLeft, this, &FrmSuonerie::Ring_LostFocus);
    connect(ui_->SuonerieDelGiorno, &DayRings::TempoRingsLeft, this,
            &FrmSuonerie::TempoRings_LostFocus);
    connect(ui_->SuonerieDelGiorno, &DayRings::Refused, this, &FrmSuonerie::ShowRefusal);
    connect(ui_->SuonerieDelGiorno, &DayRings::Edited, this, &FrmSuonerie::ForgetRefusal);
    connect(ui_->SuonerieDelGiorno, &DayRings::Entered, this, [this](int index) {
        entered_ring_ = index;
        ShowWeek();
    });
    connect(ui_->DisegnoSettimana, &WeekDrawing::DayChosen, this,
            [this](int chosen) { days_->button(chosen)->setChecked(true); });
    connect(ui_->DisegnoSettimana, &WeekDrawing::MarkChosen, this, [this](int chosen, int ring) {
        days_->button(chosen)->setChecked(true);
        ChooseRing(ring);
    });
    connect(desk.Controls().PannelloPercentuale, &QProgressBar::valueChanged, ui_->Percentuale,
            &QProgressBar::setValue);
    // The days appear as they are read.
    connect(desk.Controls().PannelloPercentuale, &QProgressBar::valueChanged, this, [this] {
        if (isVisible()) ShowWeek();
    });
    connect(desk.Controls().PannelloTentativi, &TextPanel::TextChanged, ui_->LabelTentativi,
            &TextPanel::setText);
}

FrmSuonerie::~FrmSuonerie() = default;

void FrmSuonerie::Form_Load()
{
    ForgetDay();
    ui_->Esito->clear();
    ForgetRefusal();
    ui_->LabelTentativi->clear();
    ui_->Percentuale->setValue(0);
    ShowWeek();
    SetWeek(ShownWeek());
    (IsToBeSent(ShownWeek()) ? ui_->cmdTrasmetteSuonerie : ui_->cmdRiceveSuonerie)->setFocus();
}

void FrmSuonerie::DeriveLook()
{
    TerminalWindow::DeriveLook();
    ui_->SuonerieDelGiorno->DeriveRoom();
    ui_->LabelTentativi->SetRoom(QStringLiteral("Tentativi00/00"));
    // Days of one width stand over their columns of the drawing.
    int widest = 0;
    for (const QAbstractButton* day : days_->buttons())
        widest = std::max(widest, day->sizeHint().width());
    for (QAbstractButton* day : days_->buttons()) day->setMinimumWidth(widest);
    ui_->TestataGiorni->setContentsMargins(ui_->DisegnoSettimana->HoursRoom(), 0, 0, 0);
    ui_->Percentuale->setMinimumWidth(kPercentageWidth);
    for (QWidget* label :
         std::initializer_list<QWidget*>{ui_->LabelTentativi, ui_->LabelPercentuale})
        label->setMinimumWidth(0);
    NarrowRow(*ui_->disposizione_5, ui_->ScorrimentoSuonerie->Room().width(),
              {ui_->Percentuale, ui_->LabelTentativi, ui_->LabelPercentuale});
}

void FrmSuonerie::done(int result)
{
    TakePending();
    TerminalWindow::done(result);
}

/// The frame of both commands. `work` says whether it was done to its end.
void FrmSuonerie::Transfer(QPushButton* button, const QString& task, const QString& failed,
                           const std::function<bool()>& work)
{
    button->setFocus();
    ForgetRefusal();
    task_ = task;
    ShowTitle();
    Run(task, EscapeUse::Ignored, *ui_->DisegnoSettimana, [&] {
        const TextPanel& caption = *Desk().Controls().PannelloComunicazione;
        ClearOutcome(*ui_->Esito);
        const bool done = Desk().PrepareCurrentTerminal() && work();
        const bool said = !caption.text().isEmpty();
        ui_->Esito->setText(done ? kCommunicationOk : said ? caption.text() : failed);
        Desk().ResetLineBehindCommand();
    });
    ui_->LabelTentativi->clear();
    EndTask();
}

/// The day's title is that of the day again.
void FrmSuonerie::EndTask()
{
    task_.clear();
    ShowTitle();
}

void FrmSuonerie::cmdRiceveSuonerie_Click()
{
    TakePending();
    Transfer(ui_->cmdRiceveSuonerie, tr("Lettura suonerie in corso…"),
             tr("Errore nella ricezione dei dati"), [&] {
                 return LeggeSuonerie(
                     Desk(), [this] { ForgetDay(); }, [this](int rings) { TakeRead(rings); });
             });
}

void FrmSuonerie::TakeRead(int rings)
{
    SortSuonerie(Desk().State().RingTable, Terminal());
    ShowWeek();
    weeks_.fill(WeekState::Unread);  // those of all terminals were cleared
    SetWeek(AfterRead(rings));
    EndTask();
}

void FrmSuonerie::cmdTrasmetteSuonerie_Click()
{
    TakePending();
    Transfer(ui_->cmdTrasmetteSuonerie, tr("Invio suonerie in corso…"),
             tr("Errore nella spedizione dei dati"), [this] {
                 SortSuonerie(Desk().State().RingTable, Terminal());
                 entered_ring_ = -1;  // sorting has moved it
                 ShowDay();
                 return TrasmetteSuonerie(Desk(), [this](int rings) {
                     // What stands in the table is the terminal's week now.
                     if (rings == kRingSlots) SetWeek(WeekState::Known);
                     EndTask();
                 });
             });
}

void FrmSuonerie::Giorno_Click(int day)
{
    ForgetRefusal();
    TakePending();
    shown_day_ = day;
    entered_ring_ = -1;
    ShowDay();
}

void FrmSuonerie::Ring_LostFocus(int index)
{
    if (shown_day_ < 0) return;
    if (const auto time = RingTimeOf(ui_->SuonerieDelGiorno->Ring(index).text())) {
        Entry(index).Hour = static_cast<std::int16_t>(time->hour);
        Entry(index).Minute = static_cast<std::int16_t>(time->minute);
    }
    ui_->SuonerieDelGiorno->ShowTime(index, Entry(index));
    TakeChange();
}

void FrmSuonerie::TempoRings_LostFocus(int index)
{
    if (shown_day_ < 0) return;
    const QString typed = ui_->SuonerieDelGiorno->TempoRings(index).text();
    const QString duration = DurationText(typed);
    Entry(index).HowLong = duration.toShort();
    ui_->SuonerieDelGiorno->ShowDuration(index, Entry(index));
    TakeChange();
    if (typed.toInt() > kLongestRing) {
        QApplication::beep();
        ShowRefusal(tr("%1: la durata più lunga è %2").arg(typed).arg(kLongestRing));
    }
}

/// In the place of the outcome, until something else is typed.
void FrmSuonerie::ShowRefusal(const QString& why)
{
    ui_->Esito->clear();
    ui_->Esito->SetRemark(why);
}

void FrmSuonerie::ForgetRefusal()
{
    ui_->Esito->SetRemark(QString());
}

void FrmSuonerie::TakePending()
{
    for (int index = 0; index < kRingsOfDay; ++index) {
        if (ui_->SuonerieDelGiorno->Ring(index).isModified()) Ring_LostFocus(index);
        if (ui_->SuonerieDelGiorno->TempoRings(index).isModified()) TempoRings_LostFocus(index);
    }
}

RingEntry& FrmSuonerie::Entry(int index)
{
    return RingOf(Desk().State().RingTable, Terminal(), shown_day_, index + 1);
}

void FrmSuonerie::ChooseRing(int index)
{
    ui_->SuonerieDelGiorno->Ring(index).setFocus(Qt::TabFocusReason);
}

/// No day is shown: the cells are empty and take nothing.
void FrmSuonerie::ForgetDay()
{
    days_->setExclusive(false);
    for (QAbstractButton* button : days_->buttons()) button->setChecked(false);
    days_->setExclusive(true);
    shown_day_ = -1;
    entered_ring_ = -1;
    ShowDay();
}

void FrmSuonerie::ShowDay()
{
    ui_->SuonerieDelGiorno->setEnabled(shown_day_ >= 0);
    for (int index = 0; index < kRingsOfDay; ++index) {
        const RingEntry entry = shown_day_ < 0 ? RingEntry{} : Entry(index);
        ui_->SuonerieDelGiorno->ShowTime(index, entry);
        ui_->SuonerieDelGiorno->ShowDuration(index, entry);
    }
    ShowTitle();
    ShowWeek();
}

void FrmSuonerie::ShowTitle()
{
    ui_->LabelGiorno->setText(!task_.isEmpty() ? task_
                              : shown_day_ < 0 ? tr("Scegliere un giorno")
                                               : tr("Suonerie di %1").arg(WeekDay(shown_day_)));
}

void FrmSuonerie::ShowWeek()
{
    ui_->DisegnoSettimana->Show(
        MarksOfWeek(Desk().State().RingTable, Terminal(), shown_day_, entered_ring_));
    ui_->DisegnoSettimana->ShadeDay(shown_day_);
}

/// A cell may have changed its ring: what was said of the week is no longer true.
void FrmSuonerie::TakeChange()
{
    const std::vector<RingMark> before = ui_->DisegnoSettimana->Marks();
    ShowWeek();
    if (ui_->DisegnoSettimana->Marks() == before) return;
    ui_->Esito->clear();
    SetWeek(AfterEdit(ShownWeek()));
}

void FrmSuonerie::SetWeek(WeekState week)
{
    ShownWeek() = week;
    ui_->cmdTrasmetteSuonerie->setProperty("primario", IsToBeSent(week));
    ui_->cmdRiceveSuonerie->setProperty("primario", !IsToBeSent(week));
    DeriveLook();
    ui_->Avviso->SetRemark(WeekWarning(week));
}

}  // namespace orlo
