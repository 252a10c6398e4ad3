#include "registry/widgets/colours.h"

#include <algorithm>
#include <cmath>

namespace orlo
{

namespace
{

constexpr double kReadable = 4.5;

double Linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour)
{
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

}  // namespace

QColor Blend(const QColor& over, const QColor& ground, double share)
{
    const auto mix = [share](float a, float b) {
        return static_cast<float>(share * a + (1 - share) * b);
    };
    return QColor::fromRgbF(mix(over.redF(), ground.redF()), mix(over.greenF(), ground.greenF()),
                            mix(over.blueF(), ground.blueF()));
}

double ContrastRatio(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

bool IsDark(const QPalette& palette)
{
    return Luminance(palette.color(QPalette::Window)) <
           Luminance(palette.color(QPalette::WindowText));
}

QColor SecondaryOnWindow(const QPalette& palette)
{
    return Blend(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.68);
}

QColor SecondaryOnBase(const QPalette& palette)
{
    return Blend(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.62);
}

QColor Hairline(const QPalette& palette)
{
    return Blend(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.18);
}

QColor FilledColour(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::HighlightedText);
    QColor colour = palette.color(QPalette::Active, QPalette::Highlight);
    // A black ground is the end of the way; a palette with dark highlighted text is left as it is.
    while (ContrastRatio(text, colour) < kReadable && colour.value() > 0 &&
           Luminance(text) > Luminance(colour))
        colour.setHsv(colour.hsvHue(), colour.hsvSaturation(), colour.value() - 1);
    return colour;
}

QColor FilledButtonColour(const QPalette& palette)
{
    return FilledColour(palette).darker(150);
}

QColor OutcomeColour(Outcome outcome, const QPalette& palette)
{
    const bool dark = IsDark(palette);
    switch (outcome) {
        case Outcome::Good:
            return dark ? QColor(0x5f, 0xcf, 0x7e) : QColor(0x1e, 0x7b, 0x34);
        case Outcome::Warning:
            return dark ? QColor(0xf2, 0xb8, 0x4b) : QColor(0x8a, 0x5a, 0x00);
        case Outcome::Failure:
            return dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e);
        case Outcome::None:
            break;
    }
    return palette.color(QPalette::WindowText);
}

}  // namespace orlo
