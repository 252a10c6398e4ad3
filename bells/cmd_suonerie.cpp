#include "bells/cmd_suonerie.h"

#include "bells/frm_ring_orlo_ii.h"
#include "bells/frm_suonerie.h"

namespace orlo
{

void cmdSuonerie_Click(Contenitore& window)
{
    const TerminalModel* const model = window.ShownModel();
    const int terminal = window.SelectedTerminal();
    if (model == nullptr || terminal < 1 || terminal > kTerminalSlots) return;
    if (model->family == LinkFamily::Object)
        OpenTerminalWindow<FrmSuonerie>(window);
    else
        OpenTerminalWindow<frmRingOrloII>(window);
}

}  // namespace orlo
