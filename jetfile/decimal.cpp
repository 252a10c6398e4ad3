#include "jetfile/decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace jetfile
{

namespace
{

using Magnitude = std::array<std::uint8_t, 16>;  // most significant byte first

constexpr std::size_t kCurrencyDecimals = 4;

std::string WithPoint(bool negative, std::string digits, std::size_t decimals)
{
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - decimals, ".");
    return negative ? '-' + digits : digits;
}

std::string Digits(Magnitude number)
{
    std::string digits;
    while (std::ranges::any_of(number, [](std::uint8_t byte) { return byte != 0; })) {
        unsigned rest = 0;
        for (std::uint8_t& byte : number) {
            rest = rest << 8 | byte;
            byte = static_cast<std::uint8_t>(rest / 10);
            rest %= 10;
        }
        digits.insert(digits.begin(), static_cast<char>('0' + rest));
    }
    return digits;
}

/// Nothing when the number needs more bytes.
std::optional<Magnitude> ReadDigits(std::string_view digits)
{
    Magnitude number{};
    for (const char digit : digits) {
        auto carry = static_cast<unsigned>(digit - '0');
        for (auto byte = number.rbegin(); byte != number.rend(); ++byte) {
            carry += 10u * *byte;
            *byte = static_cast<std::uint8_t>(carry & 0xFF);
            carry >>= 8;
        }
        if (carry != 0) return std::nullopt;
    }
    return number;
}

struct Written {
    bool negative = false;
    std::string digits;
    std::size_t decimals = 0;
};

/// Digits with at most one point, which has digits on both sides.
std::optional<Written> Take(std::string_view text)
{
    Written written;
    written.negative = text.starts_with('-');
    if (written.negative) text.remove_prefix(1);
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    written.digits = whole;
    if (point != std::string_view::npos) {
        const std::string_view decimals = text.substr(point + 1);
        if (decimals.empty()) return std::nullopt;
        written.digits += decimals;
        written.decimals = decimals.size();
    }
    const bool sound =
        !whole.empty() && written.digits.find_first_not_of("0123456789") == std::string::npos;
    if (!sound) return std::nullopt;
    return written;
}

}  // namespace

std::string DecimalText(jet::Currency amount)
{
    std::string digits = std::to_string(amount.ten_thousandths);
    if (amount.ten_thousandths < 0) digits.erase(0, 1);
    return WithPoint(amount.ten_thousandths < 0, digits, kCurrencyDecimals);
}

std::string DecimalText(const jet::Numeric& number)
{
    const std::string digits = Digits(number.magnitude);
    // There is no zero with a sign.
    return WithPoint(number.negative && !digits.empty(), digits.empty() ? "0" : digits,
                     number.scale);
}

std::optional<jet::Currency> ReadCurrency(std::string_view text)
{
    const auto written = Take(text);
    if (!written || written->decimals > kCurrencyDecimals) return std::nullopt;
    const std::string digits = (written->negative ? "-" : "") + written->digits +
                               std::string(kCurrencyDecimals - written->decimals, '0');
    jet::Currency amount;
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), amount.ten_thousandths);
    if (result.ec != std::errc{}) return std::nullopt;
    return amount;
}

std::optional<jet::Numeric> ReadNumeric(std::string_view text)
{
    const auto written = Take(text);
    if (!written || written->decimals > std::numeric_limits<std::uint8_t>::max()) {
        return std::nullopt;
    }
    const auto magnitude = ReadDigits(written->digits);
    if (!magnitude) return std::nullopt;
    return jet::Numeric{written->negative, *magnitude,
                        static_cast<std::uint8_t>(written->decimals)};
}

}  // namespace jetfile
