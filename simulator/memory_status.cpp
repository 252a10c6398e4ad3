#include "simulator/memory_status.h"

#include "simulator/digits.h"

namespace orlo::simulator
{

// Five characters behind each label and one blank. An empty memory counted from zero has the
// pointer "-0001": with "00000" its reader would see one punch.
std::string MemoryStatus(Counting counting, const PunchMemory& memory)
{
    const bool from_one = counting == Counting::FromOne;
    const long held = static_cast<long>(memory.Held());
    const long to_acquire = static_cast<long>(memory.ToAcquire());
    const long surplus = from_one && held > 0 ? 1 : 0;
    const long newest = held > 0 ? held - 1 : 0;
    const auto five = [](long value) { return Digits(value, 5); };

    // The oldest is the oldest still to acquire: readers take held minus old for the number of
    // punches to acquire, also on models that say one too many in TrInMemory.
    return "TPnt " + five(from_one ? held : held - 1) + " TrInMemory " +
           five(to_acquire + surplus) + " TpntOld " + five(static_cast<long>(memory.Acquired())) +
           " TpntNew " + five(newest);
}

}  // namespace orlo::simulator
