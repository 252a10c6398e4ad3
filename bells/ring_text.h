#pragma once

#include <QString>

#include <optional>

namespace orlo
{

struct RingTime {
    int hour = 0;
    int minute = 0;

    bool operator==(const RingTime&) const = default;
};

/// "07:05". A number that two digits cannot hold is written as it is.
QString RingTimeText(const RingTime& time);

/// 0 to 1439; a time out of the day counts as its nearest end.
int MinuteOfDay(const RingTime& time);

/// A time as a person writes it: hour and minute of one or two digits with a colon between them,
/// each of which may be missing and is 0 then; or three or four digits alone. Blanks do not count.
/// "7:5" is 07:05, "8" is 08:00, "730" is 07:30. Nothing for what is no time of a day.
std::optional<RingTime> RingTimeOf(const QString& text);

/// Longest ring of an Orlo or Sipa terminal.
inline constexpr int kLongestRing = 10;

/// The duration in a text, as decimal text without leading zeros: a number above 10 is "10", what
/// is no number "0".
QString DurationText(const QString& text);

}  // namespace orlo
