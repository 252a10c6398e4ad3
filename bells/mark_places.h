#pragma once

#include <vector>

namespace orlo
{

/// Length of a mark in a room: the whole of it for the longest ring of the week, or of 10.
double MarkLength(int duration, int longest, double room);

/// Places along a line, in ascending order, moved as little as leaves `gap` between each two.
std::vector<double> MovedApart(const std::vector<double>& places, double gap);

}  // namespace orlo
