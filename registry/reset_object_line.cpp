#include "registry/reset_object_line.h"

namespace orlo
{

void ResetObjectLine(Contenitore& window)
{
    const ProgramState& state = window.State();
    const TerminalModel* const model = window.ShownModel();
    if (model == nullptr || model->type != TerminalType::Orlo || !state.TelegramLinkOpen ||
        state.Component == nullptr)
        return;
    state.Component->TelegramObject->DTR(false);
    state.Component->TelegramObject->DTR(true);
    window.Station().clock.ProcessPendingEvents();
}

}  // namespace orlo
