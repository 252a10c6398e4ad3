#pragma once

#include <cstddef>

// Linking this replaces operator new of the whole process.

namespace jet::test
{

void ForgetLargestAllocation();

/// Bytes of the largest block asked for since.
std::size_t LargestAllocation();

}  // namespace jet::test
