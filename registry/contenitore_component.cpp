#include "link/object_modem_dial.h"
#include "registry/component_call.h"
#include "registry/contenitore.h"
#include "registry/held_line.h"
#include "registry/windows_1252.h"

#include "ui_contenitore.h"

#include <QScopeGuard>

#include <utility>

namespace orlo
{

namespace
{

/// Does that with the component's line, if it is open. False when the component failed.
bool UseOpenLink(Contenitore& window,
                 const std::function<void(component::TelegramComunication&)>& deed)
{
    const ProgramState& state = window.State();
    if (state.Component == nullptr || !state.TelegramLinkOpen) return true;
    const QString failure =
        GuardComponentCalls(window, [&] { deed(*state.Component->TelegramObject); });
    // The command has noted its outcome already; that the line may be up comes first.
    if (!failure.isEmpty()) window.NoteOutcome(failure);
    return failure.isEmpty();
}

bool PulsesDtr(const Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    return model != nullptr && model->line_behind_command == LineBehindCommand::DtrPulsed;
}

std::string Bytes(const QString& text)
{
    return ToWindows1252(text).toStdString();
}

void OpenLink(ProgramState& state, component::TelegramComunication& line)
{
    // The flag falls first: a link whose closing fails is not closed again before each command.
    if (std::exchange(state.TelegramLinkOpen, false)) line.endcomunication();
    // Taken by reference; the block keeps its values.
    std::int16_t port = state.CurrentPort;
    std::int32_t speed = state.CurrentSpeed;
    line.OpenComunication(port, speed);
    state.TelegramLinkOpen = true;
}

ObjectCall CallOf(const ProgramState& state)
{
    return {.terminal = state.CurrentTerminalNumber,
            .priority = state.CurrentPriority,
            .retries = state.CurrentRetries,
            .phone_number = Bytes(state.CurrentPhoneNumber),
            .plant_code = Bytes(state.CurrentPlantCode)};
}

}  // namespace

bool Contenitore::PrepareComponent(const TerminalModel& model)
{
    if (state_.Component == nullptr) {
        // The register held neither Orlo nor Sipa when the program started.
        ui_->PannelloComunicazione->setText(
            QStringLiteral("Errore: il componente per %1 non è disponibile.").arg(model.name));
        return false;
    }
    if (AnotherLineIsOpen(*this, state_.CurrentPort) || HoldsTheComponentsPort(*this)) return false;
    component::TelegramComunication& line = *state_.Component->TelegramObject;
    bool aborted = false;
    const QString failure = GuardComponentCalls(*this, [&] {
        OpenLink(state_, line);
        if (!state_.CurrentModem) return;
        // The dial heeds the Escape key, whatever command it is for.
        const auto as_before = qScopeGuard(
            [this, hidden = ui_->LabelEsc->isHidden()] { ui_->LabelEsc->setHidden(hidden); });
        ui_->LabelEsc->show();
        aborted = !ObjectModemDial(workstation_, line, CallOf(state_));
    });
    if (!aborted) return failure.isEmpty();
    // The modem may still be dialling, that of a Sipa too, which no command resets.
    if (PulseModemLine())
        ui_->PannelloComunicazione->setText(QStringLiteral("Chiamata interrotta."));
    return false;
}

bool Contenitore::PulseModemLine()
{
    return UseOpenLink(*this, [this](component::TelegramComunication& line) {
        ObjectPulseDtr(workstation_, line, state_.CurrentModem);
    });
}

bool Contenitore::HangUpBehindCommand()
{
    return !PulsesDtr(*this) || PulseModemLine();
}

void Contenitore::ResetLineBehindCommand()
{
    if (!PulsesDtr(*this)) return;
    UseOpenLink(*this, [this](component::TelegramComunication& line) {
        line.DTR(false);
        line.DTR(true);
        workstation_.clock.ProcessPendingEvents();
    });
}

}  // namespace orlo
