#pragma once

#include "registro/terminal_columns.h"

namespace orlo::registro
{

// How values are written, in lists and in exported files, and read, from there and from options:
// a model by its name, a delay with the decimal comma ("0,5" or ",5"), "Sì" or "No". Null is the
// empty text.

/// What no text can be read as is written all the same, as the number that it is: model 9, 0,25
/// seconds.
QString WrittenValue(const TerminalColumn& column, const jet::Value& value);

struct ReadValue {
    jet::Value value;
    QString fault;  ///< why the text is no value of the column, in Italian; empty when it is one
};

ReadValue ValueOfText(const TerminalColumn& column, const QString& text);

}  // namespace orlo::registro
