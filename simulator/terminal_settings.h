#pragma once

#include "simulator/badge_memory.h"
#include "simulator/punch.h"
#include "simulator/terminal_model.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// What a terminal is before the first request.
struct TerminalSettings {
    int number = 1;  // 1..32
    const TerminalModel* model = nullptr;
    std::vector<Punch> punches;  // oldest first
    std::size_t acquired = 0;    // of these, the oldest so many
    std::size_t capacity = 0;
    std::size_t records_per_answer = 10;  // 1..12; readers take 10 at most
    std::chrono::seconds clock_offset{0};
    BadgeLayout badge;
    std::string release;
};

/// Settings from a text such as "numero=4,modello=Strale,timbrature=200,seme=7". Keys: numero,
/// modello (both required), timbrature with seme or file, record, capacita, acquisite, scarto,
/// badge, versione. What is not given has the model's value. Throws UsageError.
TerminalSettings ParseTerminal(std::string_view text);

}  // namespace orlo::simulator
