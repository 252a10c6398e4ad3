#pragma once

#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orlo::end_to_end
{

/// Table of the register as an independent reader sees it, a line a row.
inline Lines Exported(const Installation& installation, const char* table)
{
    ChildProcess reader(ORLO_MDB_EXPORT, {"-H", installation.PathOf("nimbo.mdb"), table},
                        {installation.PathOf(""), {"LC_ALL=C.UTF-8"}, {}});
    const Ended ended = reader.Wait();
    EXPECT_EQ(ended.status, 0) << ended.errors;
    Lines lines;
    std::istringstream text(ended.output);
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

}  // namespace orlo::end_to_end
