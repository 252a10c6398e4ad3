#pragma once

#include "acquisition/monitor_lines.h"

#include <QString>

namespace orlo
{

/// What of the list is to be seen.
struct MonitorFilter {
    /// Part of the badge, the date or the cause, or the beginning of the type or the state; case is
    /// ignored, an empty text lets everything through, as blanks do. "Inviata" does not mean "Non
    /// Inviata".
    QString text;
    /// The whole state, or empty for any.
    QString state;

    bool IsEmpty() const { return text.trimmed().isEmpty() && state.isEmpty(); }
};

bool Passes(const MonitorPunch& punch, const MonitorFilter& filter);

}  // namespace orlo
