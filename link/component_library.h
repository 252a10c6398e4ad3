#pragma once

#include "link/component_objects.h"

#include <array>
#include <filesystem>
#include <string>

namespace orlo
{

/// Loads the protocol component from a shared library and creates one object of each of its
/// classes. `devices` are the names of the devices that stand for COM1..COM4. Throws ComponentError
/// when the library is missing, cannot be loaded, was built for another interface, or lacks a
/// class.
std::unique_ptr<ComponentObjects> LoadComponent(const std::filesystem::path& file,
                                                const std::array<std::string, 4>& devices);

}  // namespace orlo
