#pragma once

#include "registry/widgets/colours.h"

#include <QRectF>
#include <QString>

class QPainter;

namespace orlo
{

/// What a caption of the strip means by its words: "…Comunicazione OK" and the two modem captions
/// are good, texts beginning with "Errore" failures, all others warnings, the empty text nothing.
Outcome OutcomeOf(const QString& caption);

/// Circle with tick, triangle, or rounded square with cross, in the square `place`.
void PaintOutcomeGlyph(QPainter& painter, const QRectF& place, Outcome outcome,
                       const QPalette& palette);

}  // namespace orlo
