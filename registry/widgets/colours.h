#pragma once

#include <QColor>
#include <QPalette>

namespace orlo
{

/// What a text in the strip reports; shape, word and colour always say the same.
enum class Outcome { None, Good, Warning, Failure };

/// `share` of `over` painted on `ground`, 0..1.
QColor Blend(const QColor& over, const QColor& ground, double share);

/// Contrast of two opaque colours as accessibility guidelines count it, 1..21.
double ContrastRatio(const QColor& one, const QColor& other);

bool IsDark(const QPalette& palette);

// Colours derived from the desktop's palette by their use.
QColor SecondaryOnWindow(const QPalette& palette);
QColor SecondaryOnBase(const QPalette& palette);
QColor Hairline(const QPalette& palette);
/// Selected line, progress, hatching: the highlight, darkened until its text reads at 4.5:1.
QColor FilledColour(const QPalette& palette);
/// Of the filled button and of a progress bar: a step darker because the style lightens both.
QColor FilledButtonColour(const QPalette& palette);
QColor OutcomeColour(Outcome outcome, const QPalette& palette);

}  // namespace orlo
