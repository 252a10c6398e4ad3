#include "acquisition/memory_counters.h"

#include "link/fields.h"
#include "registry/numeric_value.h"

namespace orlo
{

namespace
{

constexpr std::size_t kCounterWidth = 5;
constexpr std::string_view kToAcquireLabel = "TrInMemory";

std::string Cut(std::string_view answer, std::string_view label, std::size_t distance)
{
    const std::size_t found = answer.find(label);
    const std::size_t position = found == std::string_view::npos ? 0 : found + 1;
    return Field(answer, position + distance, kCounterWidth);
}

std::string FiveDigits(int value)
{
    return LastCharacters(std::to_string(100000 + value), 5);
}

}  // namespace

MemoryCounters CutMemoryCounters(std::string_view answer)
{
    return {Cut(answer, "TPnt ", 5), Cut(answer, kToAcquireLabel, 11), Cut(answer, "TpntOld", 8),
            Cut(answer, "TpntNew", 8)};
}

bool IsMemoryStatus(std::string_view answer)
{
    const std::string counter = Cut(answer, kToAcquireLabel, 11);
    return answer.find(kToAcquireLabel) != std::string_view::npos &&
           counter.size() == kCounterWidth &&
           counter.find_first_not_of("0123456789") == std::string::npos;
}

int PunchesInMemory(MemoryCounting counting, const std::string& TPnt)
{
    const int pointer = CounterValue(TPnt);
    return counting == MemoryCounting::PointerIsCount ? pointer : pointer + 1;
}

std::string CorrectedTrInMemory(MemoryCounting counting, const std::string& TrInMemory)
{
    const int to_acquire = CounterValue(TrInMemory);
    if (counting == MemoryCounting::PointerPlusOne || to_acquire <= 0) return TrInMemory;
    return FiveDigits(to_acquire - 1);
}

int CounterValue(const std::string& counter)
{
    return WholeNumberOrZero<int>(
        QString::fromLatin1(counter.data(), static_cast<qsizetype>(counter.size())));
}

}  // namespace orlo
