#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace orlo::simulator
{

/// How a model counts in its answer to "32".
enum class Counting {
    FromZero,  ///< the pointer is one less than the punches held, the count to acquire is exact
    FromOne,   ///< the pointer is the punches held, the count to acquire is one too high
};

/// Where the answer to "03" holds its fields.
enum class ClockLayout {
    LongDate,   ///< state 9 characters, date 12 from position 10
    ShortDate,  ///< state 10 characters, date 8 from position 11
};

/// How a ring stands behind "13".
enum class BellLayout {
    Spaced,   ///< a blank first, duration of 2 digits
    Compact,  ///< no blank, duration of 3 digits
};

/// One row per model: everything that differs by model is here and nowhere else.
struct TerminalModel {
    std::string_view name;
    std::size_t capacity;  // punches
    Counting counting;
    /// Event characters of a punch: entry, exit, and one that is neither.
    std::string_view entry_events;
    std::string_view exit_events;
    char other_event;
    ClockLayout clock_layout;
    /// Code of the first of the five badge parameters, which follow each other.
    int first_badge_code;
    BellLayout bell_layout;
    std::string_view release;
};

std::span<const TerminalModel> TerminalModels();

/// The model of exactly that name, nullptr when there is none.
const TerminalModel* FindModel(std::string_view name);

}  // namespace orlo::simulator
