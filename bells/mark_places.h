#pragma once

#include <vector>

namespace orlo
{

/// Length of a mark in a room: the whole of it for the longest ring of the week, or of 10; never so
/// short that a hollow one looks like a full one.
double MarkLength(int duration, int longest, double room);

/// Stretch of a line, from one end to the other.
struct Stretch {
    double from = 0;
    double to = 0;
};

/// Places along a line, in ascending order, moved as little as leaves `gap` between each two and
/// has all of them in the stretch. Where it has no room for all, the last ones leave it.
std::vector<double> MovedApart(const std::vector<double>& places, double gap, Stretch stretch);

}  // namespace orlo
