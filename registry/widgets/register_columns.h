#pragma once

#include <QString>

namespace orlo
{

/// One line of the register cut into the columns under which it is painted, without the blanks
/// that pad them.
struct RegisterColumns {
    QString number;
    QString type;
    QString description;
    QString function;
    QString active;
    QString mode;

    bool operator==(const RegisterColumns&) const = default;
};

/// Cuts a line at its tabs, and what stands before the first one at " - ". A type without a known
/// name is not written in the line; the function, when missing, is three tabs and 15 blanks; active
/// and mode may be missing, too. So a piece is told by what it says, not by its place.
/// Example: "07 - Orlo - Ingresso\t - Abilitazione\tSì\tPres/Acc".
RegisterColumns SplitRegisterLine(const QString& line);

}  // namespace orlo
