#pragma once

#include "simulator/setting_pairs.h"
#include "simulator/usage_error.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>

namespace orlo::simulator
{

/// The punches that a terminal begins with: those that `read(stream)` finds in "file", else so many
/// as "timbrature" says, `most` at the most, that `invent(count, seed)` makes up by "seme". Throws
/// UsageError.
template <typename Invent, typename Read>
auto TakePunches(SettingPairs& pairs, int most, const Invent& invent, const Read& read)
{
    const std::optional<std::string> path = pairs.Text("file");
    const std::optional<int> count = pairs.Number("timbrature", 0, most);
    const std::optional<int> seed = pairs.Number("seme", 0, 999999999);
    if (!path)
        return invent(static_cast<std::size_t>(count.value_or(0)),
                      static_cast<std::uint32_t>(seed.value_or(1)));
    if (count || seed) RefuseTerminal("file esclude timbrature e seme");
    std::ifstream file(*path);
    if (!file) RefuseTerminal("non si apre " + *path);
    try {
        return read(file);
    } catch (const UsageError& error) {
        RefuseTerminal(*path + ", " + error.what());
    }
}

}  // namespace orlo::simulator
