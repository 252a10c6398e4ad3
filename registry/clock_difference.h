#pragma once

#include <QString>

namespace orlo
{

/// How far the terminal's clock is from the PC's, "+3 s" when it is fast; from a minute on in two
/// units, "−1 min 35 s", "+2 h 5 min", "−366 g". Empty unless date and time of both can be read.
/// `system` is the PC's date, " - " and time.
QString ClockDifference(const QString& terminal_time, const QString& terminal_date,
                        const QString& system);

}  // namespace orlo
