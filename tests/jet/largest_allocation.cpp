#include "tests/jet/largest_allocation.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace
{

std::size_t largest = 0;

}  // namespace

void* operator new(std::size_t size)
{
    largest = std::max(largest, size);
    if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace jet::test
{

void ForgetLargestAllocation()
{
    largest = 0;
}

std::size_t LargestAllocation()
{
    return largest;
}

}  // namespace jet::test
