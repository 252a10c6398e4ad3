#pragma once

#include "tests/jet/sample_files.h"

#include <string>
#include <vector>

namespace jetfile::test
{

struct Ended {
    int status = -1;  ///< exit status, -1 when a signal ended it
    std::string output;
    std::string errors;
};

/// Runs the program to its end. `input` is its standard input.
Ended Jetfile(const std::vector<std::string>& arguments, const std::string& input = {});

/// What mdb-export, a reader of other people, says a table holds: the column names, then a line a
/// row with fields apart by commas, texts and the bytes of binary values in quotes.
std::string Exported(const std::filesystem::path& file, const std::string& table);

/// The copy of a sample, to be changed.
std::filesystem::path CopyOf(const std::string& sample, const jet::test::ScratchFolder& folder);

}  // namespace jetfile::test
