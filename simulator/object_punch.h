#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace orlo::simulator
{

/// One record of an Orlo or Sipa terminal.
struct ObjectPunch {
    std::string type;       // "Presenze", "Informazioni", "Accessi"
    std::string direction;  // "Entrata", "Uscita", "Info"
    std::string badge;
    std::string cause;
    int personal_cause = 0;
    std::chrono::local_seconds at{};
};

/// Invented records in the order of time, the same ones for the same seed on any machine: entries,
/// exits and informations. None is of type "Accessi": a reader that leaves those alone would find
/// them still to acquire after every acquisition.
std::vector<ObjectPunch> InventObjectPunches(std::size_t count, std::uint32_t seed);

/// One record from "type direction badge cause personal-cause date time", for example
/// "Presenze Entrata 123456 0001 1 15/03/2006 08:30"; type and direction may be any words.
/// Throws UsageError.
ObjectPunch ParseObjectPunch(std::string_view line);

/// One record a line, oldest first. Throws UsageError that names the line.
std::vector<ObjectPunch> ReadObjectPunches(std::istream& lines);

}  // namespace orlo::simulator
