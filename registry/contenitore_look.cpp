#include "registry/contenitore.h"
#include "registry/widgets/form_style.h"

#include "ui_contenitore.h"

#include <QEvent>

#include <algorithm>
#include <initializer_list>

namespace orlo
{

namespace
{

/// The least size of the window at the font for which it was drawn, whose lines are this high.
constexpr QSize kSmallest(1180, 580);
constexpr double kDrawnLineHeight = 15;
/// Margins of the window and the gap between register and terminal.
constexpr int kAroundBoth = 12 + 18 + 12;

int Widest(const QFontMetrics& metrics, std::initializer_list<const char*> texts)
{
    // A label asks for a little more than its words.
    constexpr int kSlack = 2;
    int widest = 0;
    for (const char* text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromUtf8(text)));
    return widest + kSlack;
}

/// A field as wide as `sample` needs, the room of frame and cursor included.
void FieldRoom(QLineEdit& field, const char* sample)
{
    const QFontMetrics metrics(field.font());
    field.setFixedWidth(metrics.horizontalAdvance(QLatin1String(sample)) + metrics.height());
}

void RoomOfPanels(const Ui::Contenitore& ui)
{
    ui.PannelloAcquisire->SetBold(true);
    ui.OraTerminale->SetRoom(QStringLiteral("RX ERROR"));
    ui.DataTerminale->SetRoom(QStringLiteral("Mer 00/00/0000"));
    ui.PannelloStato->SetRoom(QStringLiteral("0000000000"));
    ui.PannelloVersione->SetRoom(QStringLiteral("0000000000"));
    ui.PanelTentativi->SetRoom(QStringLiteral("00"));
    // It takes what the strip has left and widens nothing; what does not fit is in its tool tip.
    ui.LabelUltimoComando->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    ui.PannelloTentativi->SetRoom(QStringLiteral("Tentativi00/00"));
    ui.LabelAvviso->SetRoom(QStringLiteral("Terminale non attivo"));
    ui.LabelModifiche->SetRoom(QStringLiteral("Modifiche non salvate"));
}

void RoomOfLabels(const Ui::Contenitore& ui, const QFontMetrics& metrics)
{
    ui.LabelTimbrature->setMinimumWidth(
        Widest(metrics, {"Timbrature In Memoria:", "Timbrature Flaggate:"}));
    ui.LabelNomeCard->setMinimumWidth(Widest(metrics, {"Nome:", "Cod.Impianto:"}));
    ui.LabelPercentuale->setMinimumWidth(Widest(metrics, {"Restano:", "Completato:"}));
    ui.LabelScarto->setMinimumWidth(Widest(metrics, {"−00 min 00 s"}));
    ui.LabelOrologio->setMinimumWidth(Widest(metrics, {"Terminale 00:"}));
    ui.LabelTerminale->setMinimumWidth(QFontMetrics(ui.LabelTerminale->font())
                                           .horizontalAdvance(QStringLiteral("Terminale n°00")));
    ui.PannelloPercentuale->setMinimumWidth(metrics.averageCharWidth() * 15);

    // Titles of neighbouring sections stand on one line, whether there are buttons beside them or
    // not.
    for (QLabel* title : {ui.LabelIdentita, ui.LabelLinea})
        title->setMinimumHeight(ui.cmdRiceveCard->sizeHint().height());
}

void RoomOfFields(const Ui::Contenitore& ui)
{
    const int field_height = ui.NomeFile->sizeHint().height();
    ui.cmdSfoglia->setFixedHeight(field_height);
    ui.ComboTipoTerminale->SetRoom(QStringLiteral("SuperStrale"));
    for (ChoiceBox* box : {ui.ComboPorta, ui.ComboVelocita, ui.ComboRitardo}) {
        box->SetRoom(QStringLiteral("Com 0"));
        box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    for (QLineEdit* field : {ui.Tentativi, ui.Priorita, ui.Priorita2}) FieldRoom(*field, "00000");
    for (QLineEdit* field : {ui.InizioImpianto, ui.LenImpianto, ui.InizioAzienda, ui.LenAzienda,
                             ui.InizioBadge, ui.LenBadge, ui.LenCard})
        FieldRoom(*field, "00000");
    FieldRoom(*ui.CodiceImpianto, "-00000");
    FieldRoom(*ui.CampoDescrizione, "WWWWWWWW");
    for (StepBar* bar : {ui.ScrollTentativi, ui.ScrollPriorita, ui.ScrollPriorita2})
        bar->setFixedHeight(field_height);
}

}  // namespace

void Contenitore::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange ||
                      event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    if (look && form_ != nullptr) DeriveLook();
}

void Contenitore::DeriveLook()
{
    StyleForm(*this);
    const QFontMetrics metrics(font());
    RoomOfPanels(*ui_);
    RoomOfLabels(*ui_, metrics);
    RoomOfFields(*ui_);
    ui_->cmdAggiorna->setMinimumWidth(ui_->cmdAcquisisce->minimumWidth());
    MakeEquallyWide({ui_->cmdLeggeOra, ui_->cmdSincro, ui_->cmdTest});
    KeepRoom({ui_->LabelPriorita1, ui_->LabelPriorita2, ui_->LabelRitardo, ui_->Priorita,
              ui_->Priorita2, ui_->ComboRitardo, ui_->ScrollPriorita, ui_->ScrollPriorita2,
              ui_->FrameFunzionamento, ui_->LabelLenCard, ui_->LenCard, ui_->BidirectionalCheck,
              ui_->LabelAzienda, ui_->InizioAzienda, ui_->LenAzienda, ui_->LabelEsc,
              ui_->LabelUltimoComando, ui_->PannelloTentativi});

    // The register gives way first; the terminal's page is cut only by a screen too narrow for it.
    // Nested layouts and the frames around them still hold the rooms of before.
    for (QLayout* layout : findChildren<QLayout*>()) {
        layout->invalidate();
        layout->parentWidget()->updateGeometry();
    }
    const QSize room = RoomOnScreen(*this);
    const int beside = ui_->ListaTerminali->minimumSizeHint().width() + kAroundBoth;
    ui_->ScorrimentoTerminale->setMinimumWidth(std::clamp(
        ui_->PaginaTerminale->minimumSizeHint().width(), 0, std::max(room.width() - beside, 0)));
    const QSize smallest = kSmallest * (metrics.height() / kDrawnLineHeight);
    setMinimumSize(smallest.expandedTo(minimumSizeHint()).boundedTo(room));
}

}  // namespace orlo
