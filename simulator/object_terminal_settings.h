#pragma once

#include "simulator/object_punch.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// What an Orlo or Sipa terminal is before the first request.
struct ObjectTerminalSettings {
    int number = 1;  // 1..32
    std::string model;
    std::vector<ObjectPunch> punches;  // oldest first
    std::size_t marked = 0;            // of these, the oldest so many
    std::size_t capacity = 0;
    std::chrono::seconds clock_offset{0};
    std::string plant_code;
    std::string last_build;
};

/// True when the text asks for a model that is spoken to through the protocol component.
bool IsObjectModel(std::string_view text);

/// Settings from a text such as "numero=4,modello=Orlo,timbrature=200,impianto=123". Keys: numero,
/// modello (both required), timbrature with seme or file, capacita, acquisite, scarto, impianto,
/// versione. Throws UsageError.
ObjectTerminalSettings ParseObjectTerminal(std::string_view text);

}  // namespace orlo::simulator
