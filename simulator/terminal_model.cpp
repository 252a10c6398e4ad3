#include "simulator/terminal_model.h"

#include <algorithm>
#include <array>

namespace orlo::simulator
{

namespace
{

using enum Counting;
using enum ClockLayout;
using enum BellLayout;

// clang-format off
constexpr std::array<TerminalModel, 6> kModels = {{
    {"Orlo II",     10000, FromZero, "9:",  "12",  '5', LongDate,  9, Spaced,  "Rel. 3.04"},
    {"OrloTre",     10000, FromOne,  "98:", "102", '5', ShortDate, 9, Compact, "Rel. 1.20"},
    {"SuperStrale", 10000, FromZero, "9<",  "14",  '5', ShortDate, 9, Compact, "Rel. 5.11"},
    {"Strale N",     7000, FromZero, "9<",  "14",  '5', LongDate,  6, Spaced,  "Rel. 4.02"},
    {"Lumo",        10000, FromZero, "9<",  "14",  '5', LongDate,  9, Spaced,  "Rel. 2.07"},
    {"Strale",       2500, FromZero, "9:",  "12",  '5', LongDate,  6, Spaced,  "Rel. 2.31"},
}};
// clang-format on

}  // namespace

std::span<const TerminalModel> TerminalModels()
{
    return kModels;
}

const TerminalModel* FindModel(std::string_view name)
{
    const auto* const found = std::find_if(kModels.begin(), kModels.end(),
                                           [&](const TerminalModel& m) { return m.name == name; });
    return found == kModels.end() ? nullptr : &*found;
}

}  // namespace orlo::simulator
