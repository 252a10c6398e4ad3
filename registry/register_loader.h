#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// Fills ListaTerminali and the slots from table TERMINALI, in the table's own order, and selects
/// the first line. True when at least one row is an Orlo or a Sipa.
///
/// A column that a database of earlier years lacks is added on the way, one at a time.
/// A row that cannot be read, or whose number is outside 1..32, ends the fill without a message
/// box: the lines already there stay, and a remark in the strip says why the register is not whole.
bool RiempeListaTerminali(Contenitore& window);

}  // namespace orlo
