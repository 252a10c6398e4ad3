#include "bells/mark_places.h"

#include <algorithm>
#include <cstddef>

namespace orlo
{

namespace
{

/// A ring without duration, which does not sound, is still there.
constexpr double kShortestMark = 2;

}  // namespace

double MarkLength(int duration, int longest, double room)
{
    return std::max(kShortestMark, room * duration / longest);
}

// Places that would be too close form a block around their common middle; a block that reaches into
// the one before joins it.
std::vector<double> MovedApart(const std::vector<double>& places, double gap)
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
    std::vector<double> moved;
    for (const Block& block : blocks)
        for (std::size_t member = 0; member < block.size; ++member)
            moved.push_back(block.first + static_cast<double>(member) * gap);
    return moved;
}

}  // namespace orlo
