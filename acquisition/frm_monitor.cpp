#include "acquisition/frm_monitor.h"

#include "acquisition/monitor.h"
#include "acquisition/monitor_file.h"
#include "registry/contenitore_controls.h"
#include "registry/widgets/fixed_font.h"
#include "registry/widgets/form_style.h"

#include "ui_frm_monitor.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace orlo
{

FrmMonitor::FrmMonitor(Contenitore& desk)
    : TerminalWindow(desk, *desk.Controls().cmdMonitorTimbrature),
      ui_(std::make_unique<Ui::FrmMonitor>())
{
    ui_->setupUi(this);
    ui_->LabelTestata->setText(QLatin1String(kMonitorHeading.data()));
    ui_->LabelEsc->hide();
    KeepRoom({ui_->LabelEsc});
    ShowOutcomeIn(*ui_->EsitoMonitor);
    ui_->LabelTuttaMemoria->installEventFilter(this);
    connect(ui_->cmdMonitor, &QPushButton::clicked, this, &FrmMonitor::cmdMonitor_Click);
    connect(ui_->cmdCopia, &QPushButton::clicked, ui_->ListaMonitor, &PunchList::CopySelectedOrAll);
    connect(ui_->cmdUscita, &QPushButton::clicked, this, &QWidget::close);
    connect(ui_->FiltroMonitor, &QLineEdit::textChanged, this, &FrmMonitor::Filter);
    connect(ui_->FiltroStato, &QComboBox::currentIndexChanged, this, &FrmMonitor::Filter);
}

FrmMonitor::~FrmMonitor() = default;

void FrmMonitor::Form_Load()
{
    const TerminalModel* const model = Desk().ShownModel();
    const bool object_driven = model != nullptr && model->family == LinkFamily::Object;
    ui_->ChkTuttaMemoria->setVisible(object_driven);
    ui_->LabelTuttaMemoria->setVisible(object_driven);
    // How far a small screen narrows their row depends on them.
    DeriveLook();
    ui_->ChkTuttaMemoria->setChecked(false);
    ui_->CheckMemo->setChecked(false);
    ui_->CheckMemo->setToolTip(MonitorFile::Path());
    ui_->FiltroMonitor->clear();
    OfferStates(object_driven);
    for (QLabel* label : {ui_->LabelTransazioni, ui_->LabelScaricate}) label->clear();
    ui_->EsitoMonitor->clear();
    ui_->PercentualeMonitor->setValue(0);
    ui_->ListaMonitor->Empty();
    Filter();
    ui_->cmdMonitor->setFocus();
}

void FrmMonitor::OfferStates(bool object_driven)
{
    ui_->FiltroStato->clear();
    ui_->FiltroStato->addItem(tr("Tutti gli stati"), QString());
    for (const char* state : object_driven ? kObjectStates : kSerialStates)
        ui_->FiltroStato->addItem(QLatin1String(state), QLatin1String(state));
}

void FrmMonitor::Filter()
{
    const MonitorFilter filter{.text = ui_->FiltroMonitor->text(),
                               .state = ui_->FiltroStato->currentData().toString()};
    ui_->ListaMonitor->SetFilter(filter);
    ui_->cmdCopia->setEnabled(ui_->ListaMonitor->LinesSeen() > 0);
    ShowFiltered();
}

void FrmMonitor::ShowFiltered()
{
    const PunchList& list = *ui_->ListaMonitor;
    ui_->LabelFiltrate->setText(
        list.IsFiltered() ? tr("%1 di %2").arg(list.LinesSeen()).arg(list.count()) : QString());
}

void FrmMonitor::ShowReadingDone()
{
    ui_->LabelEsc->hide();
    Desk().ShowWorkDone();
}

void FrmMonitor::cmdMonitor_Click()
{
    for (QLabel* label : {ui_->LabelTransazioni, ui_->LabelScaricate}) label->clear();
    ui_->ListaMonitor->Empty();
    ShowFiltered();
    ClearOutcome(*ui_->EsitoMonitor);
    ui_->LabelEsc->show();
    Run(tr("Lettura timbrature in corso…"), EscapeUse::Heeded, *ui_->ListaMonitor, [this] {
        if (Desk().PrepareCurrentTerminal())
            Monitor(*this);
        else
            Desk().HangUpBehindCommand();
    });
    ShowReadingDone();
    Filter();
    ui_->ListaMonitor->setFocus();
}

void FrmMonitor::DeriveLook()
{
    TerminalWindow::DeriveLook();
    MakeEquallyWide({ui_->cmdMonitor, ui_->cmdUscita});
    const QFont fixed = FixedFont(font());
    ui_->ListaMonitor->setFont(fixed);
    ui_->LabelTestata->setFont(fixed);
    ui_->LabelTestata->setContentsMargins(ui_->ListaMonitor->TextLeft(), 4, 0, 4);
    ui_->ListaMonitor->setMinimumWidth(ui_->ListaMonitor->WidthOfLines());
    const QFontMetrics metrics(font());
    ui_->ListaMonitor->setMinimumHeight(12 * metrics.height());
    // A caption of two lines moves nothing.
    ui_->EsitoMonitor->setMinimumHeight(2 * metrics.lineSpacing() + 2);
    const auto room = [&metrics](QWidget* control, const QString& text) {
        control->setMinimumWidth(metrics.horizontalAdvance(text));
    };
    room(ui_->FiltroMonitor, ui_->FiltroMonitor->placeholderText() + QStringLiteral("MMM"));
    room(ui_->LabelFiltrate, QStringLiteral("10000 di 10000"));
    room(ui_->LabelTransazioni, QStringLiteral("Transazioni Presenti:  10000 "));
    room(ui_->LabelScaricate, QStringLiteral("Transazioni Acquisite: 10000 100% "));
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->PercentualeMonitor,
                                                            ui_->LabelPercentuale, ui_->LabelEsc})
        control->setMinimumWidth(0);
    const int width = ui_->ScorrimentoMonitor->Room().width();
    NarrowRow(*ui_->disposizione_6, width, {ui_->PercentualeMonitor, ui_->LabelPercentuale});
    NarrowRow(*ui_->disposizione_10, width,
              {ui_->cmdCopia, ui_->cmdMonitor, ui_->cmdUscita, ui_->LabelEsc});
}

// The text of ChkTuttaMemoria stands in a label of its own.
bool FrmMonitor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->LabelTuttaMemoria && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && !Desk().CommandRunning())
        ui_->ChkTuttaMemoria->click();
    return TerminalWindow::eventFilter(watched, event);
}

// Enter in a filter leads to what it found. Elsewhere it reads, as the default button, only while
// the list is empty: a reading would empty it. The buttons keep their Enter to themselves.
void FrmMonitor::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && (ui_->FiltroMonitor->hasFocus() || ui_->FiltroStato->hasFocus()))
        ui_->ListaMonitor->setFocus();
    else if (enter && ui_->ListaMonitor->count() > 0)
        event->accept();
    else
        TerminalWindow::keyPressEvent(event);
}

}  // namespace orlo
