#pragma once

#include "registry/widgets/colours.h"

#include <QRectF>
#include <QString>

class QPainter;

namespace orlo
{

/// What the outcome of a command means by its words. Good are "…Comunicazione OK", also with what
/// was acquired behind it, the two modem captions, the three captions of a finished transfer, as
/// many answers as telegrams ("risposte 6 su 6") and what was saved; failures are texts beginning
/// with "Errore", "Impossibile", "Avvio non completato" or "non salvat"; all others are warnings,
/// the empty text is nothing.
Outcome OutcomeOf(const QString& caption);

/// Circle with tick, triangle, or rounded square with cross, in the square `place`.
void PaintOutcomeGlyph(QPainter& painter, const QRectF& place, Outcome outcome,
                       const QPalette& palette);

}  // namespace orlo
