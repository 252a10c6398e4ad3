#pragma once

#include "registry/program_state.h"

namespace orlo
{

/// The line of terminal n in the register, for example
/// "07 - Orlo - Ingresso\t - Abilitazione\tSì\tPres/Acc". Its first two characters are the number,
/// which is read back from there. `description` is the one stored in the table's row: it may be
/// longer than the slot's, and is used when the slot's is not empty. A number outside 1..32 ends
/// the line behind the number.
QString ListLine(int n, const TerminalRecord& slot, const QString& description);

/// The line of terminal n from its slot, with the description of the row on which
/// `TerminalsRecordset` stands; without such a row with the slot's own. Throws jet::Error.
QString CostruzioneStringa(ProgramState& state, int n);

}  // namespace orlo
