#pragma once

#include "jet/storage.h"

#include <string>
#include <vector>

namespace jet
{

/// Looks through the whole file for what does not fit together: pages with two owners or none,
/// usage maps, definitions, rows and long values, and every index against the rows of its table.
/// One Italian sentence per finding, in the order of the tables; none = the file is sound. Changes
/// nothing, except that what a crash has left half written is taken back first.
/// Errors: those of Database::Open.
std::vector<std::string> CheckIntegrity(const std::filesystem::path& path,
                                        Storage& storage = SystemStorage());

}  // namespace jet
