#include "status/object_line.h"

namespace orlo
{

bool HangUpBehindCommand(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    return model == nullptr || model->type != TerminalType::Orlo || window.PulseModemLine();
}

}  // namespace orlo
