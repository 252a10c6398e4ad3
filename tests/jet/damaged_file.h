#pragma once

#include "tests/jet/memory_storage.h"
#include "tests/jet/sample_files.h"

#include <map>
#include <random>

// What one does to a file that may be damaged in any way. It ends in a result or in a jet::Error;
// every other exception goes through to the caller.

namespace jet::test
{

/// Counts how often each error number came; 0 = no error.
using Outcomes = std::map<int, std::size_t>;

/// Opens the file and reads all there is in it, going on behind every error.
void ReadAll(const FileBytes& file, Outcomes& outcomes);

/// Opens the file for writing and makes a change in every table: a row edited, added or deleted, a
/// column appended and filled in, or a table created. A change that ends in an error must leave the
/// file byte for byte; std::logic_error when one does not. The file as it is then.
FileBytes ChangeAll(const FileBytes& file, std::mt19937& random, Outcomes& outcomes);

/// Hands to `action` so many copies of the file with some bytes changed, and the source of chance.
/// Processor time of the copy that took longest. What an action throws comes out as
/// std::runtime_error with the number of its copy.
double ForDamagedCopies(const FileBytes& whole, int copies, unsigned seed,
                        const std::function<void(const FileBytes&, std::mt19937&)>& action);

/// What CheckIntegrity finds; nothing as well when it ends in an error.
std::vector<std::string> Findings(const FileBytes& file, Outcomes& outcomes);

}  // namespace jet::test
