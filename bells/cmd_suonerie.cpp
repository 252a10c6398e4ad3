#include "bells/cmd_suonerie.h"

#include "bells/frm_ring_orlo_ii.h"
#include "bells/frm_suonerie.h"

namespace orlo
{

namespace
{

/// The window that is kept from the last time, or a new one.
template <typename Window>
Window& KeptWindow(Contenitore& main)
{
    auto* const kept = main.findChild<Window*>(QString(), Qt::FindDirectChildrenOnly);
    return kept != nullptr ? *kept : *new Window(main);
}

}  // namespace

void cmdSuonerie_Click(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    const int terminal = window.SelectedTerminal();
    if (model == nullptr || terminal < 1 || terminal > kTerminalSlots || window.CommandRunning())
        return;
    if (model->family == LinkFamily::Object)
        KeptWindow<FrmSuonerie>(window).OpenForSelected();
    else
        KeptWindow<frmRingOrloII>(window).OpenForSelected();
}

}  // namespace orlo
