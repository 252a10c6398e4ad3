#include "bells/mark_colours.h"

#include "registry/widgets/colours.h"

namespace orlo
{

namespace
{

constexpr double kTint = 0.18;
constexpr double kReadable = 4.5;
/// On the way to the colour of text.
constexpr int kSteps = 20;

}  // namespace

QColor TintedColumn(const QPalette& palette)
{
    return Blend(FilledColour(palette), palette.color(QPalette::Base), kTint);
}

// On a dark ground the filled colour, which is made for white words on it, is too dark.
QColor ChosenMark(const QPalette& palette)
{
    const QColor filled = FilledColour(palette);
    const QColor ground = TintedColumn(palette);
    const QColor text = palette.color(QPalette::Text);
    QColor mark = filled;
    for (int step = 1; step <= kSteps && ContrastRatio(mark, ground) < kReadable; ++step)
        mark = Blend(text, filled, static_cast<double>(step) / kSteps);
    return mark;
}

}  // namespace orlo
