#pragma once

#include "jet/error.h"
#include "link/operator_dialog.h"

namespace orlo
{

/// A database error as the operator sees it: " 3343 " and the error's text. A number is written
/// with room for its sign before it.
QString DatabaseErrorText(const jet::Error& error);

/// A box without a title.
void ShowDatabaseError(OperatorDialog& dialog, const jet::Error& error);

}  // namespace orlo
