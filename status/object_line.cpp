#include "status/object_line.h"

namespace orlo
{

void HangUpBehindCommand(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    if (model != nullptr && model->type == TerminalType::Orlo) window.PulseModemLine();
}

}  // namespace orlo
