#pragma once

#include <cstdint>
#include <optional>

namespace orlo
{

class Contenitore;

/// Counters of the record memory of an object-driven terminal.
struct RecordCounters {
    std::int32_t max_records = 0;  ///< capacity
    std::int32_t trasmitted = 0;   ///< already acquired; "flaggate"
    std::int32_t free = 0;
};

/// What is neither acquired nor free. A 16-bit count: nonsense from the component stays within it.
std::int16_t RecordsToAcquire(const RecordCounters& counters);

/// Asks the current terminal through the protocol component, after the terminal's delay. A refusal
/// is nothing, and the caption "Errore:" with the component's code. Throws what the component
/// throws.
std::optional<RecordCounters> ReadRecordCounters(Contenitore& window);

}  // namespace orlo
