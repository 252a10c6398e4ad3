#pragma once

#include "acquisition/acquisizione.h"
#include "acquisition/punch_file.h"
#include "acquisition/record_counters.h"
#include "acquisition/stato_memoria.h"

namespace orlo
{

/// The acquisition loop of the serial models for the terminal of the current-terminal block: asks
/// for `count` punches, ten at most in an answer, and puts them into the open file. `status` is the
/// answer that `count` came from. The terminal keeps what was not acknowledged.
AcquisitionOutcome GestioneAcquisizione(Contenitore& window, PunchFile& file, std::int16_t count,
                                        MemoryAnswer status);

/// The loop of the object-driven models: fetches, stores and marks one record after the other until
/// the terminal has no more. `counters` are what the terminal declared; `status` how the question
/// after them ended. Throws what the component throws.
AcquisitionOutcome GestioneAcquisizione(Contenitore& window, PunchFile& file,
                                        const RecordCounters& counters, MemoryAnswer status);

}  // namespace orlo
