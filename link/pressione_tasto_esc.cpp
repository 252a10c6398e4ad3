#include "link/pressione_tasto_esc.h"

namespace orlo
{

bool PressioneTastoEsc(Workstation& workstation)
{
    workstation.clock.ProcessPendingEvents();
    const EscapeKeyState key = workstation.escape.Query();
    if (!key.pressed_since_last_query || key.held_now) return false;
    const bool abort =
        workstation.dialog.AskYesNo(DialogIcon::Question, QStringLiteral("Attenzione"),
                                    QStringLiteral("Si desidera interrompere la procedura?"),
                                    /*when_ending=*/true);
    // The key that may have closed the question is not another wish to stop.
    workstation.escape.Forget();
    return abort;
}

}  // namespace orlo
