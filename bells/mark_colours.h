#pragma once

#include <QColor>
#include <QPalette>

namespace orlo
{

/// Ground of the column of the shown day.
QColor TintedColumn(const QPalette& palette);

/// Mark of the chosen ring: reads at 4.5:1 on the tinted column too.
QColor ChosenMark(const QPalette& palette);

}  // namespace orlo
