#pragma once

#include <QFontMetrics>
#include <QStringList>

#include <array>

namespace orlo
{

// The bell list as it is painted: position, time, duration, eight days, relay A, relay B.

inline constexpr std::size_t kRingColumns = 13;

struct RingColumn {
    int left = 0;
    int width = 0;
};

/// Places of the columns, the same for the heading and the lines.
std::array<RingColumn, kRingColumns> RingColumnPlaces(const QFontMetrics& metrics);

/// What the columns need from side to side.
int RingColumnsWidth(const QFontMetrics& metrics);

/// What a line shows in its columns: a set day as its initial, a set relay as A or B, a flag that
/// is not set as a small dot.
QStringList RingColumnTexts(const QString& line);

}  // namespace orlo
