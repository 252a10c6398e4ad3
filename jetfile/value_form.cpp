#include "jetfile/value_form.h"

#include "jetfile/decimal.h"
#include "jetfile/json_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <span>

namespace jetfile
{

namespace
{

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr double kDaySeconds = 86400;
constexpr sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr sys_days kFirstDay{std::chrono::year{1} / 1 / 1};
constexpr sys_days kBehindLastDay{std::chrono::year{10000} / 1 / 1};

template <typename Number>
std::string Padded(Number number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

/// What lies behind the seventh digit is only how the number is kept.
double SevenDigits(float number)
{
    if (!std::isfinite(number)) return double{number};
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::general, 7)
                         .ptr;
    double rounded = 0;
    std::from_chars(buffer.data(), end, rounded);
    return rounded;
}

std::string Hex(std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 15];
    }
    return hex;
}

/// Nothing outside the years 1 to 9999.
std::optional<std::chrono::sys_seconds> PointInTime(jet::Date date)
{
    constexpr double kFarthest = 4e6;  // more days than those years have
    if (!(std::abs(date.days) < kFarthest)) return std::nullopt;
    const double whole = std::trunc(date.days);
    const double time = std::nearbyint(std::abs(date.days - whole) * kDaySeconds);
    const auto point = kDayZero + days(static_cast<int>(whole)) + seconds(static_cast<int>(time));
    if (point < kFirstDay || point >= kBehindLastDay) return std::nullopt;
    return point;
}

std::string DateText(jet::Date date)
{
    const auto point = PointInTime(date);
    if (!point) return JsonDouble(date.days);
    const auto day = std::chrono::floor<days>(*point);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(*point - day);
    return Padded(int{calendar.year()}, 4) + '-' + Padded(unsigned{calendar.month()}, 2) + '-' +
           Padded(unsigned{calendar.day()}, 2) + ' ' + Padded(time.hours().count(), 2) + ':' +
           Padded(time.minutes().count(), 2) + ':' + Padded(time.seconds().count(), 2);
}

struct Form {
    std::string operator()(jet::Null) const { return "null"; }
    std::string operator()(bool yes) const { return JsonBool(yes); }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return JsonDouble(number); }
    std::string operator()(float number) const { return JsonDouble(SevenDigits(number)); }
    std::string operator()(jet::Currency amount) const { return JsonString(DecimalText(amount)); }
    std::string operator()(const jet::Numeric& n) const { return JsonString(DecimalText(n)); }
    std::string operator()(jet::Date date) const { return JsonString(DateText(date)); }
    std::string operator()(const jet::Text& text) const { return JsonString(text); }
    std::string operator()(const jet::Binary& bytes) const { return JsonString("0x" + Hex(bytes)); }
    std::string operator()(const jet::Guid& guid) const
    {
        std::string text = Hex(guid.bytes);
        for (const std::size_t dash : {20u, 16u, 12u, 8u}) text.insert(dash, "-");
        return JsonString("{" + text + "}");
    }
};

/// Digits of a text with a fixed form, nothing when they are no digits.
std::optional<int> Part(std::string_view text, std::size_t at, std::size_t size)
{
    const std::string_view digits = text.substr(at, size);
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

std::string ValueForm(const jet::Value& value)
{
    return std::visit(Form{}, value);
}

std::optional<jet::Date> ReadDate(std::string_view text)
{
    constexpr std::string_view kForm = "0000-00-00 00:00:00";
    if (text.size() != kForm.size() || text[4] != '-' || text[7] != '-' || text[10] != ' ' ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    const auto year = Part(text, 0, 4);
    const auto month = Part(text, 5, 2);
    const auto day = Part(text, 8, 2);
    const auto hour = Part(text, 11, 2);
    const auto minute = Part(text, 14, 2);
    const auto second = Part(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;

    const std::chrono::year_month_day calendar(std::chrono::year{*year},
                                               std::chrono::month(static_cast<unsigned>(*month)),
                                               std::chrono::day(static_cast<unsigned>(*day)));
    if (*year < 1 || !calendar.ok() || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    const auto whole = static_cast<double>((sys_days(calendar) - kDayZero).count());
    const double time = (*hour * 3600 + *minute * 60 + *second) / kDaySeconds;
    // The time of day counts forward also before day 0.
    return jet::Date{whole < 0 ? whole - time : whole + time};
}

}  // namespace jetfile
