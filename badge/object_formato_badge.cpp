#include "badge/object_formato_badge.h"

#include "registry/captions.h"
#include "registry/component_call.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"
#include "registry/wait_terminal_delay.h"
#include "registry/windows_1252.h"

#include <array>
#include <cmath>
#include <utility>

namespace orlo
{

namespace
{

struct FieldControls {
    QLineEdit* start;
    QLineEdit* length;
};

/// By the component's field index: plant, company, badge number.
std::array<FieldControls, 3> FieldsOf(const Contenitore& window)
{
    const Ui::Contenitore& controls = window.Controls();
    return {{{controls.InizioImpianto, controls.LenImpianto},
             {controls.InizioAzienda, controls.LenAzienda},
             {controls.InizioBadge, controls.LenBadge}}};
}

QString NumberText(double value)
{
    constexpr int kDigits = 15;
    return std::isfinite(value) ? QString::number(value, 'g', kDigits) : QStringLiteral("0");
}

void Tell(Contenitore& window, DialogIcon icon, const QString& text)
{
    window.Station().dialog.Tell(icon, QStringLiteral("Comunicazione"), text);
    window.NoteOutcome(text);
}

void TellError(Contenitore& window, component::MCFormatData& format)
{
    Tell(window, DialogIcon::Critical,
         QStringLiteral("Errore = ") + ComponentText(format.geterror()));
}

}  // namespace

void ReadObjectBadgeFormat(Contenitore& window)
{
    ProgramState& state = window.State();
    if (state.Component == nullptr) return;
    component::MCFormatData& format = *state.Component->MCFormatDataObject;
    WaitTerminalDelay(state, window.Station());
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] = std::pair(state.CurrentTerminalNumber, state.CurrentPriority);
    if (!format.Receive(terminal, priority)) {
        TellError(window, format);
        return;
    }
    const Ui::Contenitore& controls = window.Controls();
    controls.NomeCard->setText(ComponentText(format.IDName()));
    controls.LenCard->setText(NumberText(format.Len()));
    controls.BidirectionalCheck->setChecked(format.Bidirectional());
    std::int16_t index = 0;
    for (const FieldControls& field : FieldsOf(window)) {
        format.FieldIndex(index++);
        field.start->setText(NumberText(format.FieldStart()));
        field.length->setText(NumberText(format.FieldLen()));
    }
    window.NoteOutcome(kCommunicationOk);
}

void SendObjectBadgeFormat(Contenitore& window)
{
    ProgramState& state = window.State();
    if (state.Component == nullptr) return;
    component::MCFormatData& format = *state.Component->MCFormatDataObject;
    WaitTerminalDelay(state, window.Station());
    std::int16_t index = 0;
    for (const FieldControls& field : FieldsOf(window)) {
        format.FieldIndex(index++);
        format.FieldStart(NumericValue(field.start->text()));
        format.FieldLen(NumericValue(field.length->text()));
        format.FieldDefault(0);
    }
    const Ui::Contenitore& controls = window.Controls();
    format.IDName(ToWindows1252(controls.NomeCard->text()).toStdString());
    format.Len(NumericValue(controls.LenCard->text()));
    format.Bidirectional(controls.BidirectionalCheck->isChecked());
    // Taken by reference; the block keeps its values.
    auto [terminal, priority] = std::pair(state.CurrentTerminalNumber, state.CurrentPriority);
    if (format.Send(terminal, priority))
        Tell(window, DialogIcon::Information, QStringLiteral("Trasmissione Dati Ok"));
    else
        TellError(window, format);
}

}  // namespace orlo
