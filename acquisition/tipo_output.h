#pragma once

#include "registry/program_state.h"

namespace orlo
{

/// Reads the output layout from the first row of table Output: `Tracciato`, returned, and
/// `Codice_Azienda`, left in the program's state. A table that is missing is made. Without a row,
/// and for a value that is Null, the layout is 0 and the plant code is empty. Throws jet::Error.
std::int16_t TipoOutput(ProgramState& state);

}  // namespace orlo
