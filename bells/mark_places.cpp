#include "bells/mark_places.h"

#include <algorithm>
#include <cstddef>

namespace orlo
{

namespace
{

/// A ring without duration, which does not sound, is still there.
constexpr double kShortestMark = 6;

}  // namespace

double MarkLength(int duration, int longest, double room)
{
    return std::max(kShortestMark, room * duration / longest);
}

// Places that would be too close form a block around their common middle; a block that reaches into
// the one before joins it. Without the gaps the result would ascend, so that the ends of the
// stretch can be imposed on each place by itself.
std::vector<double> MovedApart(const std::vector<double>& places, double gap, Stretch stretch)
{
    struct Block {
        std::size_t size;
        double first;  // place of its first member
    };
    std::vector<Block> blocks;
    for (const double place : places) {
        blocks.push_back({1, place});
        while (blocks.size() > 1) {
            const Block late = blocks.back();
            Block& early = blocks[blocks.size() - 2];
            const auto early_size = static_cast<double>(early.size);
            const auto late_size = static_cast<double>(late.size);
            if (early.first + early_size * gap <= late.first) break;
            // Where each block wants the first member of both to be, weighed by its members.
            early.first = (early_size * early.first + late_size * (late.first - early_size * gap)) /
                          (early_size + late_size);
            early.size += late.size;
            blocks.pop_back();
        }
    }
    const double gaps = gap * (static_cast<double>(places.size()) - 1);
    const double last_first = std::max(stretch.from, stretch.to - gaps);
    std::vector<double> moved;
    for (const Block& block : blocks)
        for (std::size_t member = 0; member < block.size; ++member) {
            const double before = gap * static_cast<double>(moved.size());
            const double place = block.first + static_cast<double>(member) * gap;
            moved.push_back(std::clamp(place - before, stretch.from, last_first) + before);
        }
    return moved;
}

}  // namespace orlo
