#include "link/pressione_tasto_esc.h"

namespace orlo
{

bool PressioneTastoEsc(Workstation& workstation)
{
    workstation.clock.ProcessPendingEvents();
    const EscapeKeyState key = workstation.escape.Query();
    if (!key.pressed_since_last_query || key.held_now) return false;
    return workstation.dialog.AskYesNo(DialogIcon::Question, QStringLiteral("Attenzione"),
                                       QStringLiteral("Si desidera interrompere la procedura?"));
}

}  // namespace orlo
