#pragma once

#include "tests/jet/damaged_file.h"
#include "tests/jet/largest_allocation.h"

#include <gtest/gtest.h>

#include <ostream>

namespace jet::test
{

/// A sample of which damaged copies are made.
struct SickSample {
    const char* name;
    const char* file;
    int copies;
};

inline void PrintTo(const SickSample& sample, std::ostream* out)
{
    *out << sample.file;
}

/// No copy of the file has called for more memory or time than its size explains.
inline void ExpectBounded(const FileBytes& whole, double longest_seconds)
{
    // A thousand times what a copy usually takes: more is a hang.
    constexpr double kPatienceSeconds = 2;
    EXPECT_LE(LargestAllocation(), 3 * whole.size());
    EXPECT_LT(longest_seconds, kPatienceSeconds);
}

}  // namespace jet::test
