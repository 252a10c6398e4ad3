#include "simulator/badge_memory.h"

#include "simulator/digits.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr int kReadWidth = 3;
constexpr std::size_t kWriteWidth = 2;

constexpr std::array<int BadgeLayout::*, 4> kNumbers = {
    &BadgeLayout::plant_start,
    &BadgeLayout::plant_length,
    &BadgeLayout::badge_start,
    &BadgeLayout::badge_length,
};
constexpr int kPlantCode = static_cast<int>(kNumbers.size());

bool IsNumber(int parameter)
{
    return parameter >= 0 && parameter < kPlantCode;
}

bool IsDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

BadgeMemory::BadgeMemory(int first_code, BadgeLayout stored)
    : first_code_(first_code), stored_(std::move(stored)), waiting_(stored_)
{
}

std::optional<std::string> BadgeMemory::Read(int code) const
{
    const int parameter = code - first_code_;
    if (IsNumber(parameter))
        return Digits(stored_.*kNumbers[static_cast<std::size_t>(parameter)], kReadWidth);
    if (parameter != kPlantCode) return std::nullopt;
    const std::size_t missing =
        kReadWidth - std::min<std::size_t>(kReadWidth, stored_.plant_code.size());
    return std::string(missing, '0') + stored_.plant_code;
}

bool BadgeMemory::Write(int code, std::string_view value)
{
    const int parameter = code - first_code_;
    if (IsNumber(parameter)) {
        const std::optional<int> number = NumberOf(value);
        if (!number || value.size() != kWriteWidth) return false;
        waiting_.*kNumbers[static_cast<std::size_t>(parameter)] = *number;
        return true;
    }
    if (parameter != kPlantCode || !IsDigits(value) ||
        value.size() != static_cast<std::size_t>(waiting_.plant_length))
        return false;
    waiting_.plant_code = value;
    return true;
}

}  // namespace orlo::simulator
