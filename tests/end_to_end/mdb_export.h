#pragma once

#include "tests/end_to_end/child_process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace orlo::end_to_end
{

/// A table as an independent reader sees it, a line a row; the names of the columns are the first
/// line when there is a heading.
enum class Heading { With, Without };

inline std::string MdbExport(const std::filesystem::path& file, const std::string& table,
                             Heading heading = Heading::Without)
{
    std::vector<std::string> arguments{file.string(), table};
    if (heading == Heading::Without) arguments.insert(arguments.begin(), "-H");
    const Ended ended =
        ChildProcess(ORLO_MDB_EXPORT, arguments, {file.parent_path().string(), {"LC_ALL=C.UTF-8"}})
            .Wait();
    EXPECT_EQ(ended.status, 0) << ended.errors;
    return ended.output;
}

}  // namespace orlo::end_to_end
