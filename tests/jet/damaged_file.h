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

/// Processor time of one copy, a thousand times what it usually takes: more is a hang.
inline constexpr double kPatienceSeconds = 2;
inline constexpr std::size_t kMostPlaces = 4;

/// A copy with some bytes changed, between 1 and `most` places; every second one lies among the
/// first bytes of a page, where its structure is.
FileBytes DamagedCopy(const FileBytes& whole, std::size_t most, std::mt19937& random);

/// Opens the file and reads all there is in it, going on behind every error.
void ReadAll(const FileBytes& file, Outcomes& outcomes);

/// Opens the file for writing and makes a change in every table: a row edited, added or deleted, a
/// column appended and filled in, or a table created. A change that ends in an error must leave the
/// file byte for byte; std::logic_error when one does not. The file as it is then.
FileBytes ChangeAll(const FileBytes& file, std::mt19937& random, Outcomes& outcomes);

/// What CheckIntegrity finds; nothing as well when it ends in an error.
std::vector<std::string> Findings(const FileBytes& file, Outcomes& outcomes);

}  // namespace jet::test
