#include "simulator/digits.h"

#include <algorithm>
#include <cstdlib>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kMostDigits = 9;

}  // namespace

std::string Digits(long value, int width)
{
    const std::string sign = value < 0 ? "-" : "";
    const std::string digits = std::to_string(std::labs(value));
    const std::size_t used = sign.size() + digits.size();
    const std::size_t wanted = static_cast<std::size_t>(width);
    return sign + std::string(wanted > used ? wanted - used : 0, '0') + digits;
}

std::optional<int> NumberOf(std::string_view text)
{
    const bool digits_only =
        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (text.empty() || text.size() > kMostDigits || !digits_only) return std::nullopt;
    int value = 0;
    for (const char c : text) value = value * 10 + (c - '0');
    return value;
}

std::vector<std::string> Split(std::string_view text, char separator)
{
    std::vector<std::string> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

}  // namespace orlo::simulator
