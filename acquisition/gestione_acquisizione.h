#pragma once

#include "acquisition/acquisizione.h"
#include "acquisition/punch_file.h"
#include "acquisition/stato_memoria.h"

namespace orlo
{

/// The acquisition loop of the serial models for the terminal of the current-terminal block: asks
/// for `count` punches, ten at most in an answer, and puts them into the open file. `status` is the
/// answer that `count` came from. The terminal keeps what was not acknowledged.
AcquisitionOutcome GestioneAcquisizione(Contenitore& window, PunchFile& file, std::int16_t count,
                                        MemoryAnswer status);

}  // namespace orlo
