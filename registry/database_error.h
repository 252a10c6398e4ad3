#pragma once

#include "jet/error.h"
#include "link/operator_dialog.h"

namespace orlo
{

/// An error as the operator sees it: " 3343 " and its text. A number is written with room for its
/// sign before it.
QString NumberedErrorText(int number, const QString& text);

QString DatabaseErrorText(const jet::Error& error);

/// A box without a title.
void ShowDatabaseError(OperatorDialog& dialog, const jet::Error& error);

}  // namespace orlo
