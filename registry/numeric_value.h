#pragma once

#include <QString>

#include <cmath>
#include <limits>
#include <optional>

namespace orlo
{

/// The number that a text begins with: blanks before it are skipped, the decimal separator is the
/// comma. "12abc" is 12, ",5" is 0.5, a text that begins with no number is 0.
double NumericValue(const QString& text);

/// The same, rounded to a whole number (halves to the even one); nothing when it does not fit.
template <typename Integer>
std::optional<Integer> WholeNumber(const QString& text)
{
    const double value = std::nearbyint(NumericValue(text));
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        return std::nullopt;
    return static_cast<Integer>(value);
}

/// For the current-terminal block: a number that does not fit its variable is no number, and 0.
template <typename Integer>
Integer WholeNumberOrZero(const QString& text)
{
    return WholeNumber<Integer>(text).value_or(Integer{0});
}

}  // namespace orlo
