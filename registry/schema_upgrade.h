#pragma once

#include "jet/error.h"
#include "registry/program_state.h"

namespace orlo
{

/// Adds to TERMINALI the column whose absence `error` reports (number 3018) and leaves the cursor
/// reopened on the first row. False, and nothing changed, when the error names none of the columns
/// that databases of earlier years lack. Throws jet::Error.
///
/// `Ritardo` gets half a second in the first row and stays Null in the others: so it was decided,
/// and the loader leaves a field as it was where its column is Null.
[[nodiscard]] bool NuovoCampo(ProgramState& state, const jet::Error& error);

}  // namespace orlo
