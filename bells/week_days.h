#pragma once

#include <QString>

namespace orlo
{

/// The name of a day in a sentence: 0 "domenica" to 6 "sabato", 7 "festivo".
QString WeekDay(int day);

/// The same as the heading of a narrow column: "Dom" to "Sab", "Fest".
QString ShortWeekDay(int day);

}  // namespace orlo
