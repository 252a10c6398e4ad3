#include "bells/week_days.h"

#include <array>

namespace orlo
{

namespace
{

struct DayName {
    const char* name;
    const char* short_name;
};

constexpr std::array<DayName, 8> kDays = {{
    {"domenica", "Dom"},
    {"lunedì", "Lun"},
    {"martedì", "Mar"},
    {"mercoledì", "Mer"},
    {"giovedì", "Gio"},
    {"venerdì", "Ven"},
    {"sabato", "Sab"},
    {"festivo", "Fest"},
}};

}  // namespace

QString WeekDay(int day)
{
    return QString::fromUtf8(kDays.at(static_cast<std::size_t>(day)).name);
}

QString ShortWeekDay(int day)
{
    return QString::fromUtf8(kDays.at(static_cast<std::size_t>(day)).short_name);
}

}  // namespace orlo
