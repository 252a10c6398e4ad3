#pragma once

#include "jet/database.h"

namespace orlo
{

/// Table Output, the layout of the punch file: `Tracciato`, 0 standard or 1 extended, and
/// `Codice_Azienda`, the plant code of the extended one.
jet::TableDefinition OutputTable();

}  // namespace orlo
