#include "registry/terminal_lines.h"

#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/numeric_value.h"

namespace orlo
{

bool SelectTerminal(Contenitore& window, int terminal)
{
    const QListWidget& lines = *window.Controls().ListaTerminali;
    for (int position = 0; position < lines.count(); ++position) {
        if (WholeNumberOrZero<int>(lines.item(position)->text().left(2)) != terminal) continue;
        window.SelectTerminalLine(position);
        return true;
    }
    return false;
}

}  // namespace orlo
