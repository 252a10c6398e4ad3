#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// Opens the bell window of the selected terminal's model: FrmSuonerie for Orlo and Sipa,
/// frmRingOrloII for the models on the serial line, none for a text that is no model's name.
void cmdSuonerie_Click(Contenitore& window);

}  // namespace orlo
