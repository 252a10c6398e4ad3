#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>

namespace orlo::simulator
{

struct ObjectRing {
    int hour = 0;
    int minute = 0;
    int duration = 0;  // 0..10, 0 = no ring
};

inline constexpr int kDays = 7;
inline constexpr int kRingsADay = 24;

/// The bells of an Orlo or Sipa terminal: 24 rings on each of seven days.
class ObjectWeek
{
public:
    /// The 24 rings of day "0".."6", each hour, minute and duration of two digits, 144 in all;
    /// nothing for another day.
    std::optional<std::string> DayText(const std::string& day) const;

    /// Takes day, ring 1..24, hour, minute, duration; false, and nothing changed, when one of them
    /// cannot be.
    [[nodiscard]] bool Put(std::span<const std::string> texts);

    /// `day` 0..6, `ring` 1..24.
    const ObjectRing& Ring(int day, int ring) const { return rings_.at(Index(day, ring)); }

private:
    static std::size_t Index(int day, int ring)
    {
        return static_cast<std::size_t>(day * kRingsADay + ring - 1);
    }

    std::array<ObjectRing, std::size_t{kDays} * kRingsADay> rings_{};
};

}  // namespace orlo::simulator
